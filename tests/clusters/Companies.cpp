#include "clusters/Companies.h"

#include <QSqlQuery>
#include <QStringList>
#include <functional>
#include <utility>

#include "clusters/Host.h"
#include "sample/SampleCompany.h"

namespace support {

namespace {

// Tables that grow, each with the date or key by which it would be divided.
const std::pair<const char*, const char*> Divided[] = {
    {"oe", "date"},         {"ar", "date"},        {"ip", "date"},      {"gl", "date"},
    {"booking", "begdate"}, {"itemcost", "key"},   {"itemdet", "item"}, {"item", "item"},
    {"cust", "id"},         {"custbal", "custid"}, {"vend", "id"},      {"apagehist", "period"}};

// Which are on the other server as a whole.
constexpr char FarTables[] = "area, terms, suburb, periods, names";

void Execute(const QSqlDatabase& Database, const QString& Sql) {
  TBackend::Execute(Database, Sql);
}

QStringList Tables(const QSqlDatabase& Database) {
  QStringList Result;
  QSqlQuery Query(QStringLiteral("SELECT tablename FROM pg_tables WHERE schemaname = 'public' ORDER BY 1"), Database);
  while (Query.next()) Result << Query.value(0).toString();
  return Result;
}

// The two values between which the middle range lies, as literals. A null goes into the default partition.
std::pair<QString, QString> Cuts(const QSqlDatabase& Database, const QString& Table, const QString& Key) {
  const auto At = [&](const char* Share) {
    return TBackend::Value(Database, QStringLiteral("SELECT quote_literal(percentile_disc(%1) WITHIN GROUP (ORDER BY "
                                                    "%2)) FROM %3")
                                         .arg(Share, Key, Table))
        .toString();
  };
  return {At("0.33"), At("0.66")};
}

/// Creates the middle partition of a table; what goes behind its name is given.
using TCreateMiddle = std::function<void(const QString& Table, const QString& Bounds)>;

void Divide(const QSqlDatabase& Database, const TCreateMiddle& CreateMiddle) {
  for (const auto& [Name, Column] : Divided) {
    const QString Table = Name;
    const QString Key = Quoted(Column);
    const auto [From, To] = Cuts(Database, Table, Key);
    Execute(Database, QStringLiteral("ALTER TABLE %1 RENAME TO %1_whole").arg(Table));
    Execute(Database, QStringLiteral("CREATE TABLE %1 (LIKE %1_whole) PARTITION BY RANGE (%2)").arg(Table, Key));
    const auto Create = [&](const char* Part, const QString& Bounds) {
      Execute(Database, QStringLiteral("CREATE TABLE %1_%2 PARTITION OF %1 %3").arg(Table, Part, Bounds));
    };
    Create("first", QStringLiteral("FOR VALUES FROM (MINVALUE) TO (%1)").arg(From));
    CreateMiddle(Table, QStringLiteral("FOR VALUES FROM (%1) TO (%2)").arg(From, To));
    Create("last", QStringLiteral("FOR VALUES FROM (%1) TO (MAXVALUE)").arg(To));
    Create("rest", QStringLiteral("DEFAULT"));
    Execute(Database, QStringLiteral("INSERT INTO %1 SELECT * FROM %1_whole").arg(Table));
    Execute(Database, QStringLiteral("DROP TABLE %1_whole").arg(Table));
  }
}

}  // namespace

void CreateCompanyOn(const TThrowawayPostgreSQL& Server) {
  THost Host(Server.Connect(NewName()));
  Host.Execute(QStringLiteral("CREATE DATABASE company"));
  sample::CreateCompanyOnServer(Server.Address(QStringLiteral("company")));
}

QString Quoted(const QString& Name) {
  return '"' + QString(Name).replace(QLatin1Char('"'), QStringLiteral("\"\"")) + '"';
}

void PartitionByRange(const QSqlDatabase& Database) {
  Divide(Database, [&](const QString& Table, const QString& Bounds) {
    Execute(Database, QStringLiteral("CREATE TABLE %1_middle PARTITION OF %1 %2").arg(Table, Bounds));
  });
}

void PutShardsOn(const QSqlDatabase& Database, const TThrowawayPostgreSQL& Other) {
  THost Far(Other.Connect(NewName(), QStringLiteral("company")));
  Execute(Database, QStringLiteral("CREATE EXTENSION postgres_fdw"));
  Execute(Database, QStringLiteral("CREATE SERVER far FOREIGN DATA WRAPPER postgres_fdw OPTIONS (host '%1', port "
                                   "'%2', dbname 'company')")
                        .arg(Other.Host())
                        .arg(Other.Port()));
  Execute(Database, QStringLiteral("CREATE USER MAPPING FOR PUBLIC SERVER far OPTIONS (user 'tester')"));
  Divide(Database, [&](const QString& Table, const QString& Bounds) {
    Far.Execute(QStringLiteral("CREATE TABLE %1_middle (LIKE %1)").arg(Table));
    Execute(Database,
            QStringLiteral("CREATE FOREIGN TABLE %1_middle PARTITION OF %1 %2 SERVER far").arg(Table, Bounds));
  });
  Execute(Database, QStringLiteral("DROP TABLE %1").arg(FarTables));
  Execute(Database,
          QStringLiteral("IMPORT FOREIGN SCHEMA public LIMIT TO (%1) FROM SERVER far INTO public").arg(FarTables));
}

void PutViewsInPlace(const QSqlDatabase& Database) {
  Execute(Database, QStringLiteral("CREATE SCHEMA stored"));
  for (const QString& Table : Tables(Database)) {
    Execute(Database, QStringLiteral("ALTER TABLE %1 SET SCHEMA stored").arg(Table));
    if (Table == QLatin1String("item")) {
      Execute(Database, QStringLiteral("CREATE MATERIALIZED VIEW item AS SELECT * FROM stored.item"));
    } else if (Table == QLatin1String("vend")) {
      Execute(Database, QStringLiteral("CREATE FUNCTION stored.vendors() RETURNS SETOF stored.vend LANGUAGE plpgsql "
                                       "STABLE AS 'BEGIN RETURN QUERY SELECT * FROM stored.vend; END'"));
      Execute(Database, QStringLiteral("CREATE VIEW vend AS SELECT * FROM stored.vendors()"));
    } else {
      Execute(Database, QStringLiteral("CREATE VIEW %1 AS SELECT * FROM stored.%1").arg(Table));
    }
  }
}

void ProtectRows(const QSqlDatabase& Database) {
  Execute(Database, QStringLiteral("DO $$ BEGIN IF NOT EXISTS (SELECT FROM pg_roles WHERE rolname = 'clerk') THEN "
                                   "CREATE ROLE clerk LOGIN; END IF; END $$"));
  Execute(Database, QStringLiteral("GRANT SELECT ON ALL TABLES IN SCHEMA public TO clerk"));
  for (const QString& Table : Tables(Database)) {
    Execute(Database, QStringLiteral("ALTER TABLE %1 ENABLE ROW LEVEL SECURITY").arg(Table));
    Execute(Database, QStringLiteral("CREATE POLICY of_company ON %1 FOR SELECT TO clerk USING "
                                     "(coalesce(nullif(current_setting('app.company', true), ''), 'main') = 'main')")
                          .arg(Table));
  }
}

void MoveToOddSchema(const QSqlDatabase& Database) {
  const QString Schema = Quoted(OddSchema);
  Execute(Database, QStringLiteral("CREATE SCHEMA %1").arg(Schema));
  for (const QString& Table : Tables(Database)) {
    Execute(Database, QStringLiteral("ALTER TABLE %1 SET SCHEMA %2").arg(Table, Schema));
    Execute(Database, QStringLiteral("CREATE TABLE public.%1 (LIKE %2.%1)").arg(Table, Schema));
  }
  Execute(Database,
          QStringLiteral("ALTER DATABASE %1 SET search_path = %2, public").arg(Database.databaseName(), Schema));
}

}  // namespace support
