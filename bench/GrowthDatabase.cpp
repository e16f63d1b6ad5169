#include "GrowthDatabase.h"

#include <QFile>
#include <QFileInfo>
#include <cstdio>
#include <string_view>

#include "PickBench.h"
#include "ServerKind.h"
#include "sample/SampleCompany.h"

namespace bench {

namespace {

// Scatters the numbers from 1 to some million over those of six hexadecimal digits, no two to the same.
constexpr std::int64_t Factor = 7'368'787;
constexpr std::int64_t Prime = 16'777'213;

sample::TOptions Base() {
  sample::TOptions Options;
  Options.Scale = GrowthStep / 1000;
  Options.Overwrite = true;
  return Options;
}

// Multiplies the sample company's customers: each with another key, and a name of its own.
void Multiply(TPlainClient& Plain, std::int64_t Rows, const std::string& Series,
              const std::function<std::string(const std::string& Number)>& SixDigits) {
  const std::string Step = std::to_string(GrowthStep);
  Plain.Execute("CREATE TABLE growthbase AS SELECT * FROM cust");
  Plain.Execute("DELETE FROM cust");
  Plain.Execute("INSERT INTO cust SELECT " + SixDigits("N") +
                ", firstname, SUBSTR(COALESCE(company, ''), 1, 28) || ' ' || " +
                SixDigits("N * " + std::to_string(Factor) + " % " + std::to_string(Prime)) +
                ", addr1, zip, phone, contact, email, entity, FALSE FROM (SELECT B.*, (K.N - 1) * " + Step +
                " + CAST(SUBSTR(B.id, 2) AS integer) AS N FROM (" + Series + ") K CROSS JOIN growthbase B) S");
  Plain.Execute("DROP TABLE growthbase");
  if (Plain.Number("SELECT COUNT(*) FROM cust") != Rows) qFatal("The customers were not multiplied as they should.");
}

void Tell(const std::string& Name, std::int64_t Rows) {
  fprintf(stderr, "%s: making %lld customers\n", Name.c_str(), static_cast<long long>(Rows));
}

class TGrowthSQLite : public TGrowthServer {
 public:
  std::string Name() const override { return "SQLite"; }

  std::string Address(std::int64_t Rows) override {
    const QString File = KeptFolder().filePath(QStringLiteral("zul-growth-%1.db").arg(Rows));
    if (QFile::exists(File)) return File.toStdString();
    Tell(Name(), Rows);
    const QString Unfinished = File + QStringLiteral(".new");
    sample::CreateCompany(Unfinished.toStdString(), Base());
    {
      const auto Plain = PlainSQLite(Unfinished.toStdString());
      Plain->Execute("PRAGMA synchronous = OFF");
      Multiply(*Plain, Rows,
               "WITH RECURSIVE Numbers(N) AS (SELECT 1 UNION ALL SELECT N + 1 FROM Numbers WHERE N < " +
                   std::to_string(Rows / GrowthStep) + ") SELECT N FROM Numbers",
               [](const std::string& Number) { return "printf('%06X', " + Number + ")"; });
      Plain->Execute("VACUUM");
    }
    QFile::rename(Unfinished, File);
    return File.toStdString();
  }

  std::unique_ptr<TPlainClient> Connect(const std::string& Address) const override { return PlainSQLite(Address); }
  std::string PlainSql(std::string Sql) const override {
    constexpr std::string_view Own = "zul_upper";
    for (std::size_t At = Sql.find(Own); At != Sql.npos; At = Sql.find(Own, At)) Sql.replace(At, Own.size(), "UPPER");
    return Sql;
  }
  double DatabaseBytes(const std::string& Address) const override {
    return static_cast<double>(QFileInfo(QString::fromStdString(Address)).size());
  }
  double MemoryBytes() const override { return 0; }
};

// A server of its own, whose data are kept where databases are.
class TGrowthOnServer : public TGrowthServer {
 public:
  explicit TGrowthOnServer(const TServerKind& Kind) : Kind_(Kind) {
    TServerOptions Options{Kind.ForMillions, {}};
    if (qEnvironmentVariableIsSet("ZUL_BENCH_FOLDER")) {
      Options.Folder = KeptFolder().absoluteFilePath(QStringLiteral("zul-growth-") + QLatin1String(Kind.Name));
    }
    Own_ = Kind.Start(Options);
    // Which databases are complete.
    if (Own_.Reason.isEmpty()) {
      Kind.Connect(Own_.Address(QLatin1String(Kind.Database)))
          ->Execute("CREATE TABLE IF NOT EXISTS zul_growth (database_rows bigint)");
    }
  }

  std::string Name() const override { return Kind_.Name; }
  std::string Reason() const override { return Own_.Reason.toStdString(); }

  std::string Address(std::int64_t Rows) override {
    const std::string Database = "growth_" + std::to_string(Rows);
    std::string Result = Own_.Address(QString::fromStdString(Database));
    const auto Beside = Kind_.Connect(Own_.Address(QLatin1String(Kind_.Database)));
    if (Beside->Number("SELECT COUNT(*) FROM zul_growth WHERE database_rows = " + std::to_string(Rows)) > 0) {
      return Result;
    }
    Tell(Name(), Rows);
    Beside->Execute("DROP DATABASE IF EXISTS " + Database);
    Beside->Execute("CREATE DATABASE " + Database);
    sample::CreateCompanyOnServer(Result, Base());
    const auto Plain = Kind_.Connect(Result);
    Multiply(*Plain, Rows, Kind_.Series(Rows / GrowthStep), [this](const std::string& Number) {
      return "LPAD(UPPER(" + std::string(Kind_.Hex) + "(" + Number + ")), 6, '0')";
    });
    for (const std::string& Statement : Kind_.Analyze) Plain->Execute(Statement);
    Beside->Execute("INSERT INTO zul_growth VALUES (" + std::to_string(Rows) + ")");
    return Result;
  }

  std::unique_ptr<TPlainClient> Connect(const std::string& Address) const override { return Kind_.Connect(Address); }
  double DatabaseBytes(const std::string& Address) const override {
    return static_cast<double>(Connect(Address)->Number(Kind_.SizeSql));
  }
  double MemoryBytes() const override { return static_cast<double>(Own_.MemoryKiB()) * 1024; }

 private:
  const TServerKind& Kind_;
  TOwnServer Own_;
};

}  // namespace

std::unique_ptr<TGrowthServer> NewGrowthServer(const std::string& Name) {
  if (Name == "sqlite") return std::make_unique<TGrowthSQLite>();
  if (Name == "postgresql") return std::make_unique<TGrowthOnServer>(PostgreSQLKind());
  if (Name == "mariadb") return std::make_unique<TGrowthOnServer>(MariaDBKind());
  return nullptr;
}

std::string RareText(std::int64_t Rows) {
  char Digits[16];
  std::snprintf(Digits, sizeof Digits, "%06llX", static_cast<unsigned long long>(Rows / 2 * Factor % Prime));
  return Digits;
}

}  // namespace bench
