#pragma once

#include <QRegularExpression>
#include <QString>
#include <vector>

/// A file of the project, by its path from the project's folder.
struct TSource {
  QString Path;
  QString Text;
};

/// The files below a folder whose names match the pattern ("*.cpp"), by path.
std::vector<TSource> SourcesIn(const QString& Folder, const QString& Pattern);

/// What the pattern's first group matches in a text, in order.
QStringList AllMatches(const QString& Text, const QRegularExpression& Pattern);
