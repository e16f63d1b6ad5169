#include "completeness/Sources.h"

#include <QDirIterator>
#include <QFile>
#include <algorithm>

std::vector<TSource> SourcesIn(const QString& Folder, const QString& Pattern) {
  const QDir Project(QStringLiteral(ZUL_PROJECT_FOLDER));
  std::vector<TSource> Result;
  QDirIterator Files(Project.filePath(Folder), {Pattern}, QDir::Files, QDirIterator::Subdirectories);
  while (Files.hasNext()) {
    QFile File(Files.next());
    if (!File.open(QIODevice::ReadOnly)) qFatal("%s cannot be read.", qPrintable(File.fileName()));
    Result.push_back({Project.relativeFilePath(File.fileName()), QString::fromUtf8(File.readAll())});
  }
  if (Result.empty()) qFatal("There is no %s in %s.", qPrintable(Pattern), qPrintable(Folder));
  std::sort(Result.begin(), Result.end(), [](const TSource& A, const TSource& B) { return A.Path < B.Path; });
  return Result;
}

QStringList AllMatches(const QString& Text, const QRegularExpression& Pattern) {
  QStringList Result;
  for (const QRegularExpressionMatch& Match : Pattern.globalMatch(Text)) Result << Match.captured(1);
  return Result;
}
