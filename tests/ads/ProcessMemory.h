#pragma once

#include <QByteArray>
#include <QFile>
#include <QList>
#include <QString>

/// A figure of a process in one of its files in /proc that has a line "Name: figure kB" for each, such as status or
/// smaps_rollup; 0 when it is not to be read.
inline qint64 ProcessKiB(const QString& Process, const char* FileName, const QByteArray& Name) {
  QFile File(QStringLiteral("/proc/%1/%2").arg(Process, QLatin1String(FileName)));
  if (!File.open(QIODevice::ReadOnly)) return 0;
  for (const QByteArray& Line : File.readAll().split('\n')) {
    if (Line.startsWith(Name + ':')) return Line.simplified().split(' ').value(1).toLongLong();
  }
  return 0;
}

/// The sum of a figure of smaps_rollup over a process and its children.
inline qint64 FamilyKiB(qint64 Process, const QByteArray& Name) {
  qint64 Sum = ProcessKiB(QString::number(Process), "smaps_rollup", Name);
  QFile Children(QStringLiteral("/proc/%1/task/%1/children").arg(Process));
  if (!Children.open(QIODevice::ReadOnly)) return Sum;
  for (const QByteArray& Child : Children.readAll().simplified().split(' ')) {
    Sum += ProcessKiB(QString::fromLatin1(Child), "smaps_rollup", Name);
  }
  return Sum;
}
