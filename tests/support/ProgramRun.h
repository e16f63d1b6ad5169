#pragma once

#include <QProcess>
#include <QString>
#include <QStringList>

namespace support {

/// What became of a program: its exit code, -1 when it crashed or did not end, and what it wrote.
struct TRun {
  int Code = -1;
  QString Output;
  QString Errors;
};

/// Runs a program to its end.
inline TRun RunProgram(const QString& Program, const QStringList& Words, const QProcessEnvironment& Variables,
                       int Milliseconds) {
  QProcess Process;
  Process.setProcessEnvironment(Variables);
  Process.start(Program, Words);
  if (!Process.waitForFinished(Milliseconds)) {
    Process.kill();
    Process.waitForFinished();
    return {};
  }
  TRun Result;
  if (Process.exitStatus() == QProcess::NormalExit) Result.Code = Process.exitCode();
  Result.Output = QString::fromUtf8(Process.readAllStandardOutput());
  Result.Errors = QString::fromUtf8(Process.readAllStandardError());
  return Result;
}

}  // namespace support
