#include <QSqlQuery>
#include <QTest>
#include <functional>

#include "ads/Ads.h"
#include "catalog/Catalog.h"
#include "servers/HostileTrial.h"
#include "servers/PickTaker.h"
#include "support/EveryDialog.h"
#include "support/PickDriver.h"
#include "zulcommon/EZULException.h"

using support::TBackend;
using support::TBackendKind;
using support::THostileTrial;

namespace {

// One for each row, so that codes stay unique and rows that belong together still do. Each begins with what tells it
// from the others even where a short column cuts it off.
constexpr const char* StoredTexts[] = {"a'",   "b';--", "c'||'", "d\\'--", "e''", "f' OR 1=1 --", "g$$'",
                                       "h'\\", "i\"'",  "j]'",   "k%_'",   "l/*", "m'+'",         "n--"};
constexpr int ShortestColumn = 2;  // a shorter one holds flags and kinds, without which nothing is listed

struct TColumn {
  QString Name;
  int Length;
};

QStringList Values(const QSqlDatabase& Database, const QString& Sql) {
  QStringList Result;
  QSqlQuery Query(Sql, Database);
  while (Query.next()) Result << Query.value(0).toString();
  return Result;
}

std::vector<TColumn> TextColumns(const TBackend& Backend, const QString& Table) {
  const QString Sql =
      support::IsOnPostgreSQL(Backend.Kind())
          ? "SELECT column_name, character_maximum_length FROM information_schema.columns WHERE table_schema = "
            "'public' AND table_name = '%1' AND data_type LIKE 'character%'"
      : support::IsOnMariaDB(Backend.Kind())
          ? "SELECT column_name, character_maximum_length FROM information_schema.columns WHERE table_schema = "
            "DATABASE() AND table_name = '%1' AND data_type = 'varchar'"
          : "SELECT name, substr(type, instr(type, '(') + 1) + 0 FROM pragma_table_info('%1') WHERE type LIKE '%CHAR%'";
  std::vector<TColumn> Result;
  QSqlQuery Query(Sql.arg(Table), Backend.Beside());
  while (Query.next()) Result.push_back({Query.value(0).toString(), Query.value(1).toInt()});
  return Result;
}

QString Quoted(QString Text) {
  return '\'' + Text.replace('\'', "''") + '\'';
}

/// How a backend is asked for its tables and for the place of a row.
struct TPlaces {
  QString Tables;
  QString Row;
};

TPlaces PlacesOf(const TBackend& Backend) {
  if (support::IsOnPostgreSQL(Backend.Kind())) {
    return {"SELECT tablename FROM pg_tables WHERE schemaname = 'public'", "ctid"};
  }
  if (!support::IsOnMariaDB(Backend.Kind())) {
    return {"SELECT name FROM sqlite_master WHERE type = 'table' AND name NOT LIKE 'sqlite%'", "rowid"};
  }
  const QString Tables =
      "SELECT table_name FROM information_schema.tables WHERE table_schema = DATABASE() AND table_type = 'BASE TABLE'";
  for (const QString& Table : Values(Backend.Beside(), Tables)) {
    Backend.Execute(Backend.Beside(), QStringLiteral("ALTER TABLE `%1` ADD COLUMN zul_place INTEGER").arg(Table));
    Backend.Execute(Backend.Beside(), "SET @place = 0");
    Backend.Execute(Backend.Beside(), QStringLiteral("UPDATE `%1` SET zul_place = (@place := @place + 1)").arg(Table));
  }
  return {Tables, "zul_place"};
}

// Writes such a text into every text of every row, as far as the table's own rules let it.
int StoreHostileTexts(const TBackend& Backend) {
  const TPlaces Known = PlacesOf(Backend);
  if (support::IsOnMariaDB(Backend.Kind()))
    Backend.Execute(Backend.Beside(), "SET sql_mode = 'ANSI_QUOTES,NO_BACKSLASH_ESCAPES'");
  int Stored = 0;
  for (const QString& Table : Values(Backend.Beside(), Known.Tables)) {
    const QStringList Places = Values(Backend.Beside(), QStringLiteral("SELECT %1 FROM \"%2\"").arg(Known.Row, Table));
    for (qsizetype Row = 0; Row < Places.size(); ++Row) {
      const QString Where = QStringLiteral(" WHERE %1 = '%2'").arg(Known.Row, Places[Row]);
      if (Row >= static_cast<qsizetype>(std::size(StoredTexts))) {
        Backend.Execute(Backend.Beside(), QStringLiteral("DELETE FROM \"%1\"").arg(Table) + Where);
        continue;
      }
      QStringList Changes;
      for (const TColumn& Column : TextColumns(Backend, Table)) {
        if (Column.Length < ShortestColumn) continue;
        const QString Text = QString::fromLatin1(StoredTexts[Row]).left(Column.Length);
        Changes << QStringLiteral("\"%1\" = %2").arg(Column.Name, Quoted(Text));
      }
      if (Changes.isEmpty()) continue;
      QSqlQuery Query(Backend.Beside());
      Stored += Query.exec(QStringLiteral("UPDATE \"%1\" SET ").arg(Table) + Changes.join(", ") + Where) ? 1 : 0;
    }
  }
  return Stored;
}

// One use of the library, and what it is called.
using TUse = std::function<void(const std::string& Name, const std::function<void()>& Run)>;

// Shows every dialog's every value, also those that are looked up row by row, and calls every pick, of which some go
// from one list to the next by what was chosen in the first; each by way of `Use`. How many rows were shown.
int UseEverything(TBackend& Backend, const TUse& Use) {
  int Rows = 0;
  for (const support::TSampleDialog& Sample : support::EveryDialog()) {
    Use(Sample.Name, [&] {
      const auto Dialog = Sample.Create(Backend.Connection());
      for (int Row = 0; Row < Dialog->qryList_->RecordCount(); ++Row, ++Rows) {
        const ads::TRowScope Scope(*Dialog->qryList_, Row);
        for (const ads::TField* Field : Dialog->qryList_->Fields()) (void)Field->DisplayText();
      }
    });
  }
  for (const catalog::TPick& Pick : catalog::FullCatalog().All()) {
    Use(Pick.Name, [&] {
      try {
        Pick.Call(Backend.Connection(), catalog::TArgs(Pick.Args));
      } catch (const ads::EDatabaseError&) {
      } catch (const zulcommon::EZULException&) {
      }
    });
  }
  return Rows;
}

}  // namespace

/// Whatever stands in the database is shown and looked up, and does nothing else.
class tst_NothingStoredActs : public QObject {
  Q_OBJECT

  std::unique_ptr<support::THostileBackends> Backends_;

 private slots:
  void initTestCase() { Backends_ = std::make_unique<support::THostileBackends>(); }

  void shouldOnlyShowWhatIsStored_data() {
    QTest::addColumn<TBackendKind>("Kind");
    for (const TBackendKind Kind : support::EveryBackend) QTest::newRow(support::NameOf(Kind)) << Kind;
  }
  void shouldOnlyShowWhatIsStored() {
    QFETCH(TBackendKind, Kind);
    const QString Missing = Backends_->Missing(Kind);
    if (!Missing.isEmpty()) QSKIP(qPrintable(Missing));
    const std::unique_ptr<TBackend> Backend = Backends_->Open(Kind);
    const support::TErrorBoxes Answers;
    const support::TPickTaker Taker;
    THostileTrial Trial(*Backends_, *Backend);
    Trial.Learn([&] { UseEverything(*Backend, [](const std::string&, const auto& Run) { Run(); }); });
    QVERIFY(StoreHostileTexts(*Backend) > 100);
    Trial.ExpectChanges();
    const int Rows = UseEverything(*Backend, [&](const std::string& Name, const auto& Run) {
      Trial.Try("What is stored, by " + QString::fromStdString(Name), Run);
    });
    Trial.CheckNothingChanged("What is stored");
    QVERIFY(Rows > 100);
    QVERIFY2(Trial.Complaints().isEmpty(), support::Told(Trial.Complaints()).constData());
  }
};

QTEST_MAIN(tst_NothingStoredActs)
#include "tst_NothingStoredActs.moc"
