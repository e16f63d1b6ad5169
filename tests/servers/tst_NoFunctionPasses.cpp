#include <QSqlQuery>
#include <QTest>
#include <set>

#include "ads/Ads.h"
#include "ads/Cursor.h"
#include "ads/sql/ReadingOnly.h"
#include "servers/HostileTrial.h"

using support::TBackend;
using support::TBackendKind;

namespace {

// What the dialogs' own queries call.
const std::set<std::string>& AllowedFunctions() {
  static const std::set<std::string> Names{"coalesce", "count", "iif", "substring", "sum", "trim", "upper"};
  return Names;
}

// What stands before a parenthesis or a text without calling anything.
bool IsOfTheLanguage(const std::string& Name) {
  return Name == "all" || Name == "distinct" || Name == "exists" || Name == "not";
}

// Every function of the server and its extensions, and every word that it knows: some of those are called without the
// looks of a function.
std::vector<std::string> EveryName(const TBackend& Backend) {
  QSqlQuery Query(
      "SELECT proname::text FROM pg_proc UNION SELECT word FROM pg_get_keywords() UNION SELECT typname FROM pg_type "
      "WHERE typrelid = 0 AND typelem = 0 ORDER BY 1",
      Backend.Beside());
  std::vector<std::string> Names;
  while (Query.next()) Names.push_back(Query.value(0).toString().toStdString());
  return Names;
}

std::string Upper(std::string Name) {
  for (char& Letter : Name) Letter = static_cast<char>(std::toupper(static_cast<unsigned char>(Letter)));
  return Name;
}

struct TNotation {
  const char* Name;
  std::string Before;
  std::string After;
  bool Plain = false;  // as the dialogs call what they call
  bool Bare = Plain;   // as a word of the language may stand there
};

// What stands before and behind the name of a function in an expression that calls it.
const std::vector<TNotation>& Notations() {
  static const std::vector<TNotation> All{{"bare", "", "(77)", true},
                                          {"bare, of a text", "", "('x')", true},
                                          {"bare, of a column", "", "(T.x)", true},
                                          {"bare, in another", "UPPER(", "(T.x))", true},
                                          {"bare, of nothing", "", "()", true},
                                          {"bare, after a blank", "", " (77)", true},
                                          {"bare, after a comment", "", "/* */(77)", true},
                                          {"bare, on another line", "", "--\r(77)", true},
                                          {"bare, of a query", "", "((SELECT 77))", true},
                                          {"quoted", "\"", "\"(77)"},
                                          {"bracketed", "[", "](77)"},
                                          {"quoted, after a blank", "\"", "\" (77)"},
                                          {"of the catalogue", "pg_catalog.", "(77)"},
                                          {"of the catalogue, quoted", "\"pg_catalog\".\"", "\"(77)"},
                                          {"of the catalogue, bracketed", "[pg_catalog].[", "](77)"},
                                          {"of the catalogue, after blanks", "pg_catalog . ", " (77)"},
                                          {"of a schema", "public.", "(77)"},
                                          {"of a database and a schema", "company.public.", "(77)"},
                                          {"of an alias", "T.", "(77)"},
                                          {"of an alias, quoted", "T.\"", "\"('x')"},
                                          {"of a parenthesis", "(77).", ""},
                                          {"of a parenthesis, quoted", "(77).\"", "\""},
                                          {"of a parenthesis, bracketed", "(77).[", "]"},
                                          {"of a parenthesis, after blanks", "(77) . ", ""},
                                          {"of a parenthesis, after comments", "(77)/* */./* */", ""},
                                          {"of a parenthesis, on another line", "(77)--\r.--\r", ""},
                                          {"of a text in a parenthesis", "('x').", ""},
                                          {"of an alias in a parenthesis", "(T).", ""},
                                          {"of a column in a parenthesis", "(T.x).", ""},
                                          {"of a call in a parenthesis", "(ABS(77)).", ""},
                                          {"of a call", "ABS(77).", ""},
                                          {"of a call, called", "ABS(77).", "(77)"},
                                          {"of a query", "(SELECT 77).", ""},
                                          {"of a query, quoted", "(SELECT 77).\"", "\""},
                                          {"of a CASE", "CASE WHEN 1=1 THEN 77 END.", ""},
                                          {"of a CASE in a parenthesis", "(CASE WHEN 1=1 THEN 77 END).", ""},
                                          {"of a text", "'x'.", ""},
                                          {"of a number", "77.", ""},
                                          {"of a bracket", "(ARRAY[77])[1].", ""},
                                          {"of a row", "ROW(77).", ""},
                                          {"of another", "(77).a.", ""},
                                          {"with another behind", "(77).", ".a"},
                                          {"of all of another", "((77).*).", ""},
                                          {"of a type", "", " 'x'", false, true},
                                          {"of a type, quoted", "\"", "\" 'x'"},
                                          {"of a type, bracketed", "[", "]'x'"},
                                          {"of a type of the catalogue", "pg_catalog.", " 'x'"},
                                          {"of a type with its size", "", "(7) 'x'"},
                                          {"as an operator", "1 OPERATOR(pg_catalog.", ") 1"},
                                          {"by a cast", "CAST('x' AS ", ")"},
                                          {"by a short cast", "'x'::", ""},
                                          {"in an escape", "{fn ", "(77)}"},
                                          {"over a window", "", "(77) OVER ()"},
                                          {"with a filter", "", "(77) FILTER (WHERE 1=1)"},
                                          {"within a group", "", "(0.5) WITHIN GROUP (ORDER BY x)"}};
  return All;
}

// Where an expression or a table may stand.
constexpr const char* Places[][2] = {{"SELECT ", " X FROM Area T"},
                                     {"SELECT T.x FROM Area T WHERE 0=0 AND T.x = ", ""},
                                     {"SELECT T.x FROM Area T ORDER BY ", ""}};

bool Passes(const std::string& Sql) {
  try {
    ads::sql::RequireReadingOnly(Sql);
    return true;
  } catch (const ads::EDatabaseError&) {
    return false;
  }
}

}  // namespace

/// No function of a server gets past the gate but those that the dialogs' queries call, and these in their way of
/// calling them only.
class tst_NoFunctionPasses : public QObject {
  Q_OBJECT

  std::unique_ptr<support::THostileBackends> Backends_;
  std::unique_ptr<TBackend> Server_;
  std::vector<std::string> Names_;

 private slots:
  void initTestCase() {
    Backends_ = std::make_unique<support::THostileBackends>();
    const QString Missing = Backends_->Missing(TBackendKind::PostgreSQL);
    if (!Missing.isEmpty()) QSKIP(qPrintable(Missing));
    Server_ = Backends_->Open(TBackendKind::PostgreSQL);
    Names_ = EveryName(*Server_);
    QVERIFY(Names_.size() > 3000);
  }
  void cleanupTestCase() { Server_.reset(); }

  void shouldRefuseEveryNotationOfEveryFunction_data() {
    QTest::addColumn<int>("Index");
    for (std::size_t Index = 0; Index < Notations().size(); ++Index) {
      QTest::newRow(Notations()[Index].Name) << static_cast<int>(Index);
    }
  }
  void shouldRefuseEveryNotationOfEveryFunction() {
    QFETCH(int, Index);
    const TNotation& Notation = Notations()[static_cast<std::size_t>(Index)];
    QStringList Passed;
    for (const std::string& Name : Names_) {
      if (Notation.Plain && AllowedFunctions().contains(Name)) continue;
      if (Notation.Bare && IsOfTheLanguage(Name)) continue;
      const auto Try = [&](const std::string& Written, const auto& Place) {
        const std::string Sql = Place[0] + Notation.Before + Written + Notation.After + Place[1];
        if (Passes(Sql)) Passed << QString::fromStdString(Sql);
      };
      for (const auto& Place : Places) Try(Name, Place);
      Try(Upper(Name), Places[0]);
    }
    QVERIFY2(Passed.isEmpty(), support::Told(Passed).constData());
  }

  void shouldRefuseEveryFunctionAsATable() {
    QStringList Passed;
    for (const std::string& Name : Names_) {
      if (AllowedFunctions().contains(Name)) continue;  // which do no more as a table
      for (const std::string& Table : {Name + "(77) x", "LATERAL " + Name + "(77) x", "ROWS FROM (" + Name + "(77)) x",
                                       "Area, " + Name + "('x')", "Area T INNER JOIN " + Name + "() x ON 0=0",
                                       "\"" + Name + "\"(77)", "pg_catalog." + Name + "(77)", "('x')." + Name}) {
        const std::string Sql = "SELECT 1 X FROM " + Table;
        if (Passes(Sql)) Passed << QString::fromStdString(Sql);
      }
    }
    QVERIFY2(Passed.isEmpty(), support::Told(Passed).constData());
  }

  void shouldRefuseTheServersOwnTables_data() {
    QTest::addColumn<QString>("Schema");
    QTest::newRow("catalogue") << "pg_catalog";
    QTest::newRow("information") << "information_schema";
  }
  void shouldRefuseTheServersOwnTables() {
    QFETCH(QString, Schema);
    QSqlQuery Query(
        "SELECT relname FROM pg_class WHERE relkind IN ('r', 'v') AND relnamespace = '" + Schema + "'::regnamespace",
        Server_->Beside());
    int Count = 0;
    for (; Query.next(); ++Count) {
      const std::string Name = Query.value(0).toString().toStdString();
      const std::string Qualified = Schema.toStdString() + '.' + Name;
      std::vector<std::string> Ways{Qualified,
                                    "\"" + Schema.toStdString() + "\".\"" + Name + '"',
                                    '[' + Schema.toStdString() + "].[" + Name + ']',
                                    "company." + Qualified,
                                    "Area T, " + Qualified,
                                    "(" + Qualified + ")",
                                    "ONLY " + Qualified,
                                    Qualified + " *"};
      if (Schema == "pg_catalog") {
        for (const char* Way :
             {"%", "\"%\"", "[%]", "Area T, % x", "Area T INNER JOIN % x ON 0=0", "(%) x", "Area T CROSS JOIN %"}) {
          Ways.push_back(QString::fromLatin1(Way).replace('%', QString::fromStdString(Name)).toStdString());
        }
      }
      for (const std::string& Way : Ways) {
        QVERIFY2(!Passes("SELECT 1 X FROM " + Way), Way.c_str());
        QVERIFY2(!Passes("SELECT 1 X FROM " + Upper(Way)), Way.c_str());
      }
    }
    QVERIFY(Count > 50);
  }

  // `T.f` is spelled as a column is, and PostgreSQL calls a function of the whole row when there is no such column.
  void shouldActByNoFunctionOfARow_data() {
    QTest::addColumn<TBackendKind>("Kind");
    for (const TBackendKind Kind : {TBackendKind::PostgreSQL, TBackendKind::ODBCPostgreSQL}) {
      QTest::newRow(support::NameOf(Kind)) << Kind;
    }
  }
  void shouldActByNoFunctionOfARow() {
    QFETCH(TBackendKind, Kind);
    const QString Missing = Backends_->Missing(Kind);
    if (!Missing.isEmpty()) QSKIP(qPrintable(Missing));
    const std::unique_ptr<TBackend> Backend = Backends_->Open(Kind);
    support::THostileTrial Trial(*Backends_, *Backend);
    Trial.AllowEveryShape();
    int Called = 0;
    for (const std::string& Name : Names_) {
      if (Name == "acting") continue;  // the database's own; what it does is its owner's
      for (const std::string& Column : {"T.\"" + Name + '"', "[T].[" + Name + ']'}) {
        Trial.Try(QString::fromStdString(Column), [&] {
          try {
            Called += Backend->Connection()->OpenCursor("SELECT " + Column + " X FROM Terms T")->Next() ? 1 : 0;
          } catch (const ads::EDatabaseError&) {
          }
        });
      }
    }
    Trial.CheckNothingChanged("A function of a row");
    qInfo("%d were called", Called);
    QVERIFY(Called > 20);
    QVERIFY2(Trial.Complaints().isEmpty(), support::Told(Trial.Complaints()).constData());
  }
};

QTEST_MAIN(tst_NoFunctionPasses)
#include "tst_NoFunctionPasses.moc"
