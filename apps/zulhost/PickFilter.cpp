#include "apps/zulhost/PickFilter.h"

#include <QRegularExpression>
#include <QStringList>
#include <algorithm>

namespace zulhost {

namespace {

constexpr int WholeName = 0;
constexpr int WholeWord = 1;
constexpr int Beginning = 2;
constexpr int Midst = 3;
constexpr int LessThanName = 10;  // what is said of the pick, or the function's name
constexpr int MoreWords = 1;      // each word of a name that was not typed

// "CallPickCity" is three words.
QStringList WordsOf(QString Text) {
  static const QRegularExpression Hump(QStringLiteral("([a-z])([A-Z])"));
  static const QRegularExpression Between(QStringLiteral("[^\\w]+"));
  return Text.replace(Hump, QStringLiteral("\\1 \\2")).toLower().split(Between, Qt::SkipEmptyParts);
}

std::optional<int> MisfitIn(const QStringList& Words, const QString& Typed) {
  std::optional<int> Best;
  for (const QString& Word : Words) {
    if (!Word.contains(Typed)) continue;
    const int This = Word == Typed ? WholeWord : Word.startsWith(Typed) ? Beginning : Midst;
    Best = std::min(Best.value_or(This), This);
  }
  return Best;
}

}  // namespace

std::optional<int> Misfit(const catalog::TPick& Pick, const QString& Typed) {
  const QString Name = QString::fromStdString(Pick.Name);
  if (Typed.trimmed().compare(Name, Qt::CaseInsensitive) == 0) return WholeName;
  const QStringList NameWords = WordsOf(Name);
  const QStringList OtherWords = WordsOf(QString::fromStdString(Pick.Function + ' ' + Pick.Help));
  int Sum = MoreWords * static_cast<int>(NameWords.size());
  for (const QString& Word : WordsOf(Typed)) {
    const std::optional<int> InName = MisfitIn(NameWords, Word);
    const std::optional<int> Elsewhere = MisfitIn(OtherWords, Word);
    if (!InName && !Elsewhere) return std::nullopt;
    Sum += LessThanName * (InName ? *InName : *Elsewhere + LessThanName);
  }
  return Sum;
}

}  // namespace zulhost
