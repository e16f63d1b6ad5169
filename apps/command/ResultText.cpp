#include "apps/command/ResultText.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace command {

namespace {

struct TToJson {
  QJsonValue operator()(std::monostate) const { return QJsonValue::Null; }
  QJsonValue operator()(bool Value) const { return Value; }
  QJsonValue operator()(std::int32_t Value) const { return Value; }
  QJsonValue operator()(double Value) const { return Value; }
  QJsonValue operator()(const std::string& Value) const { return QString::fromStdString(Value); }
};

QJsonObject Row(const catalog::TShownRow& Values) {
  QJsonObject Result;
  for (const auto& [Name, Value] : Values) Result.insert(QString::fromStdString(Name), std::visit(TToJson{}, Value));
  return Result;
}

}  // namespace

std::string KeyLines(const catalog::TResult& Result) {
  std::string Lines;
  for (const std::string& Key : Result.Keys) Lines += Key + "\n";
  return Lines;
}

std::string JsonText(const catalog::TResult& Result, const std::vector<catalog::TShownRow>& Rows) {
  QJsonArray Keys;
  for (const std::string& Key : Result.Keys) Keys.append(QString::fromStdString(Key));
  QJsonArray Shown;
  for (const catalog::TShownRow& Each : Rows) Shown.append(Row(Each));
  QJsonObject Whole;
  Whole.insert(QLatin1String("keys"), Keys);
  Whole.insert(QLatin1String("rows"), Shown);
  return QJsonDocument(Whole).toJson().toStdString();
}

}  // namespace command
