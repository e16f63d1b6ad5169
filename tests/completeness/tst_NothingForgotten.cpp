// What belongs to a pick besides its source, derived from what the module exports, from its catalog and from the
// sources, so that there is no list of picks to be kept. What is missing is told with the file where it goes;
// docs/adding-a-pick.md has it all in order.
#include <QAccessible>
#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <map>
#include <set>

#include "ads/GoldenCases.h"
#include "ads/sql/Dialect.h"
#include "ads/sql/Lexer.h"
#include "completeness/LoadedTexts.h"
#include "completeness/Sources.h"
#include "frame/PackageEntry.h"
#include "support/EveryDialog.h"
#include "support/ModuleSymbols.h"
#include "support/PickDriver.h"
#include "support/TestCompany.h"
#include "toolkit/Formats.h"
#include "zulcommon/StringTable.h"
#include "zulcommon/Text.h"

using support::TSampleDialog;
using uDocPickBase::TDocPickBase;

namespace {

/// A pick that lists nothing of the sample company unless it is given arguments, and why.
struct TListsNothing {
  std::string Pick;
  std::string Reason;
};

const std::vector<TListsNothing>& ListsNothing() {
  static const std::vector<TListsNothing> All{
      {"oe-member", "a customer must be given"},
      {"ar-invoice", "the invoices are those of a customer"},
      {"item-location", "the locations are those of an item"},
      {"item-cost", "the costs are those of an item"},
      {"kit-option", "the options are those of a kit"},
      {"preset-option", "the options are those of a preset's line"},
  };
  return All;
}

/// What is missing, each once.
class TMissing {
 public:
  template <typename... TTexts>
  void Add(const TTexts&... Texts) {
    QString Line;
    ((Line += Text(Texts)), ...);
    if (!Lines_.contains(Line)) Lines_ << Line;
  }
  /// Tells each, because one message has little room.
  bool IsNothing() const {
    for (const QString& Line : Lines_) qWarning("%s", qPrintable(Line));
    return Lines_.isEmpty();
  }

 private:
  static QString Text(const QString& Part) { return Part; }
  static QString Text(const std::string& Part) { return QString::fromStdString(Part); }
  static QString Text(const char* Part) { return QString::fromUtf8(Part); }
  static QString Text(qsizetype Part) { return QString::number(Part); }

  QStringList Lines_;
};

#define VERIFY_NOTHING(Missing) QVERIFY2((Missing).IsNothing(), "What is missing stands above.")

QString ClassOf(const TDocPickBase& Dialog) {
  return QString::fromLatin1(Dialog.metaObject()->className());
}

// The folder of the unit's family, such as "reference"; empty when there is no such unit.
QString FamilyOf(const std::string& Unit) {
  static const std::vector<TSource> Headers = SourcesIn(QStringLiteral("src/picks"), QStringLiteral("*.h"));
  for (const TSource& Header : Headers) {
    const QStringList Parts = Header.Path.split('/');
    if (Parts.back() == QString::fromStdString(Unit) + ".h") return Parts[Parts.size() - 2];
  }
  return {};
}

/// Every dialog over the sample company, or why there is none.
struct TOpened {
  const TSampleDialog* Sample;
  std::unique_ptr<TDocPickBase> Dialog;
  std::string Failure;
};

TOpened Open(const TSampleDialog& Sample, ads::TAdsConnection* Connection) {
  TOpened Result{&Sample, nullptr, {}};
  try {
    Result.Dialog = Sample.Create(Connection);
    if (Result.Dialog->qryList_->IsEmpty()) Result.Failure = "It lists nothing.";
  } catch (const std::exception& Error) {
    Result.Failure = Error.what();
  }
  return Result;
}

// A choice is made without a query of its own; what is done here queries once.
void Query(TDocPickBase& Dialog) {
  try {
    Dialog.CallSetSQL();
  } catch (const std::exception&) {
    // Some orders can be done by no server; their query is what counts.
  }
}

/// A query of a dialog, and the order that was chosen for it.
struct TOrdered {
  int Order;
  std::string Sql;
};

// The queries of the dialog in all its orders: descending, and ascending with what can be found by the same column, a
// text and number or a date.
std::vector<TOrdered> Queries(TDocPickBase& Dialog) {
  static const QString Date =
      QString::fromStdString(toolkit::FormatDate(toolkit::ShortDateFormat(), QDate(2024, 6, 30)));
  std::vector<TOrdered> Result;
  Dialog.rgOrderBy->OnClick = {};
  Dialog.rgFindBy->OnClick = {};
  const QSignalBlocker QuietBox(Dialog.ckbDesc);
  const QSignalBlocker QuietFind(Dialog.edFind);
  const int Finds = Dialog.rgFindBy->Items().Count();
  for (int Order = 0; Order < std::max(Dialog.rgOrderBy->Items().Count(), 1); ++Order) {
    if (Order > 0) Dialog.rgOrderBy->SetItemIndex(Order);
    if (Order < Finds) Dialog.rgFindBy->SetItemIndex(Order);
    for (const QString& Text : {QString(), QStringLiteral("1"), Date}) {
      Dialog.ckbDesc->setChecked(Text.isEmpty());
      Dialog.edFind->setText(Text);
      Query(Dialog);
      Result.push_back({Order, Dialog.qryList_->SQL()->Text()});
    }
  }
  return Result;
}

// The names behind FROM and JOIN.
std::set<std::string> Tables(const std::string& Sql) {
  std::set<std::string> Result;
  bool IsNext = false;
  for (const ads::sql::TToken& Token : ads::sql::Tokenize(Sql)) {
    if (Token.Kind == ads::sql::TTokenKind::Blank) continue;
    const bool IsName = Token.Kind == ads::sql::TTokenKind::Word || Token.Kind == ads::sql::TTokenKind::QuotedName;
    if (IsNext && IsName) Result.insert(zulcommon::UpperCase(ads::sql::NameOf(Token)));
    IsNext = Token.IsWord("FROM") || Token.IsWord("JOIN");
  }
  return Result;
}

// What a query lists and in which order, whatever its conditions are: its SELECT line, which holds the sort column, its
// tables, and its ORDER BY line without the direction.
std::string ListAndOrder(const std::string& Sql) {
  QStringList Lines = QString::fromStdString(Sql).split('\n', Qt::SkipEmptyParts);
  if (Lines.isEmpty()) return {};
  std::string Result = Lines.front().toStdString();
  for (const std::string& Table : Tables(Sql)) Result += ' ' + Table;
  static const QRegularExpression Direction(QStringLiteral(" DESC$"), QRegularExpression::CaseInsensitiveOption);
  if (Lines.back().startsWith("ORDER BY")) Result += Lines.back().remove(Direction).toStdString();
  return Result;
}

// Every text that somebody sees or hears of the dialog, with the control that has it.
std::vector<std::pair<QString, QString>> ShownTexts(const TDocPickBase& Dialog) {
  std::vector<std::pair<QString, QString>> Result{{QStringLiteral("the caption"), Dialog.windowTitle()}};
  for (QWidget* Widget : Dialog.findChildren<QWidget*>()) {
    QStringList Texts{Widget->toolTip(), Widget->whatsThis(), Widget->statusTip()};
    if (const auto* Button = qobject_cast<QAbstractButton*>(Widget)) Texts << Button->text();
    if (const auto* Group = qobject_cast<QGroupBox*>(Widget)) Texts << Group->title();
    if (const auto* Label = qobject_cast<QLabel*>(Widget)) Texts << Label->text();
    if (const auto* Edit = qobject_cast<QLineEdit*>(Widget)) Texts << Edit->placeholderText();
    if (QAccessibleInterface* Accessible = QAccessible::queryAccessibleInterface(Widget)) {
      Texts << Accessible->text(QAccessible::Name) << Accessible->text(QAccessible::Description);
    }
    for (const QString& Text : Texts) Result.emplace_back(Widget->objectName(), Text);
  }
  for (const toolkit::TColumn* Column : Dialog.dbgAvail->Columns()) {
    const QString Name = "the column " + QString::fromStdString(Column->Field()->FieldName());
    Result.emplace_back(Name, QString::fromStdString(Column->Title()));
    Result.emplace_back(Name, QString::fromStdString(Column->AccessibleTitle()));
  }
  return Result;
}

// Has the cells of the first rows said, as an assistive program does; what they say is the database's.
void HearCells(const TDocPickBase& Dialog) {
  QAccessibleTableInterface* Grid = QAccessible::queryAccessibleInterface(Dialog.dbgAvail)->tableInterface();
  for (int Row = 0; Row < std::min(Grid->rowCount(), 50); ++Row) {
    for (int Column = 0; Column < Grid->columnCount(); ++Column) {
      (void)Grid->cellAt(Row, Column)->text(QAccessible::Name);
    }
  }
}

// Has the dialog say what it can: each of its boxes turned, and in each way of finding a text that is none.
std::vector<std::string> Messages(TDocPickBase& Dialog) {
  const support::TErrorBoxes Boxes;
  Dialog.show();
  for (QCheckBox* Box : Dialog.findChildren<QCheckBox*>()) {
    if (!Box->isVisible() || !Box->isEnabled()) continue;
    Box->toggle();
    Box->toggle();
  }
  for (int Find = 0; Find < Dialog.rgFindBy->Items().Count(); ++Find) {
    Dialog.rgFindBy->SetItemIndex(Find);
    Dialog.edFind->setText(QStringLiteral("no date, no number"));
    Dialog.bbnFInd->click();
  }
  return Boxes.Messages();
}

// The numbers of the texts that are compiled in.
std::set<std::int32_t> NumbersOfTexts() {
  static const QRegularExpression Line(QStringLiteral("^(\\d+)\t"), QRegularExpression::MultilineOption);
  std::set<std::int32_t> Result;
  const std::vector<TSource> Files = SourcesIn(QStringLiteral("src/zulcommon/strings"), QStringLiteral("en.txt"));
  for (const QString& Number : AllMatches(Files.front().Text, Line)) Result.insert(Number.toInt());
  return Result;
}

}  // namespace

class tst_NothingForgotten : public QObject {
  Q_OBJECT

  support::TTestCompany Company_;
  std::vector<TOpened> All_;

 private Q_SLOTS:
  void initTestCase();
  void shouldExportEveryPickFunctionThatAHeaderDeclares();
  void shouldHaveEveryExportedFunctionInTheCatalog();
  void shouldShowEveryExportedDialogByAPick();
  void shouldHaveEveryUnitInTheModulesList();
  void shouldStartEveryUnitAfterThoseBelowIt();
  void shouldHaveArgumentsOfPicksOnly();
  void shouldOpenEveryPickOverTheSampleCompany();
  void shouldHaveAReasonWhereNothingIsListedWithoutArguments();
  void shouldHaveEveryTableInTheSampleCompany();
  void shouldHaveGoldenTextsOfEveryOrderOfEveryDialog();
  void shouldShowNoNumberInPlaceOfAText();
  void shouldLoadEveryTextThereIs();
  void shouldOfferShortAndDifferentChoices();
  void shouldHaveATestOfItsOwnForEveryPick();
};

void tst_NothingForgotten::initTestCase() {
  QVERIFY(!support::ExportedPickFunctions().empty());
  QVERIFY(!support::ExportedDialogs().empty());
  for (const TSampleDialog& Sample : support::EveryDialog()) All_.push_back(Open(Sample, Company_.Connection()));
}

void tst_NothingForgotten::shouldExportEveryPickFunctionThatAHeaderDeclares() {
  std::set<std::string> Exported;
  for (const support::TExportedFunction& Function : support::ExportedPickFunctions()) Exported.insert(Function.Name);
  static const QRegularExpression Declared(QStringLiteral("^\\S[^/\n]*\\b(Call\\w+)\\("),
                                           QRegularExpression::MultilineOption);
  TMissing Missing;
  for (const TSource& Header : SourcesIn(QStringLiteral("src/picks"), QStringLiteral("u*.h"))) {
    const QString Unit = Header.Path.section('/', -1).chopped(2);
    for (const QString& Function : AllMatches(Header.Text, Declared)) {
      if (Exported.contains((Unit + "::" + Function).toStdString())) continue;
      Missing.Add(Header.Path, " declares ", Function,
                  ", which the module does not export: add the unit to zul_units in ", Header.Path.section('/', 0, -2),
                  "/CMakeLists.txt and ZULPICKLISTS_EXPORT to the function.");
    }
  }
  VERIFY_NOTHING(Missing);
}

void tst_NothingForgotten::shouldHaveEveryExportedFunctionInTheCatalog() {
  std::map<std::string, int> InCatalog;
  for (const catalog::TPick& Pick : catalog::FullCatalog().All()) ++InCatalog[Pick.Function];
  std::map<std::string, int> Exported;
  for (const support::TExportedFunction& Function : support::ExportedPickFunctions()) ++Exported[Function.Name];
  TMissing Missing;
  for (const auto& [Function, Count] : Exported) {
    if (InCatalog[Function] == Count) continue;
    Missing.Add(Function, " is exported ", Count, " times and stands in the catalog ", InCatalog[Function],
                " times: add it to the file of its family in src/catalog.");
  }
  for (const auto& [Function, Count] : InCatalog) {
    if (!Exported.contains(Function)) Missing.Add(Function, " is in the catalog, but not exported: see src/catalog.");
  }
  VERIFY_NOTHING(Missing);
}

void tst_NothingForgotten::shouldShowEveryExportedDialogByAPick() {
  std::set<std::string> Shown;
  for (const TOpened& Each : All_) {
    if (Each.Dialog != nullptr) Shown.insert(ClassOf(*Each.Dialog).toStdString());
  }
  TMissing Missing;
  for (const std::string& Dialog : support::ExportedDialogs()) {
    if (Shown.contains(Dialog)) continue;
    Missing.Add(Dialog, " is shown by no pick over the sample company: add its function to the catalog (src/catalog), ",
                "and arguments for which it opens to tests/support/EveryDialog.cpp.");
  }
  VERIFY_NOTHING(Missing);
}

void tst_NothingForgotten::shouldHaveEveryUnitInTheModulesList() {
  const TPackageInfoTable& Table = *GetPackageInfoTable();
  const std::vector<std::string> Listed(Table.Units, Table.Units + Table.UnitCount);
  std::set<std::string> Units;
  for (const support::TExportedFunction& Each : support::ExportedPickFunctions())
    Units.insert(support::UnitOf(Each.Name));
  for (const std::string& Dialog : support::ExportedDialogs()) Units.insert(support::UnitOf(Dialog));
  TMissing Missing;
  for (const std::string& Unit : Units) {
    if (std::count(Listed.begin(), Listed.end(), Unit) == 1) continue;
    Missing.Add(Unit, " must stand once in the module's list: src/module/PackageEntry.cpp.");
  }
  VERIFY_NOTHING(Missing);
}

// A unit is started after those that it is built on: the dialogs after what stands below them, and each after the one
// that it derives from.
void tst_NothingForgotten::shouldStartEveryUnitAfterThoseBelowIt() {
  const TPackageInfoTable& Table = *GetPackageInfoTable();
  std::map<std::string, QString> Folders;
  for (const TSource& Header : SourcesIn(QStringLiteral("src"), QStringLiteral("u*.h"))) {
    Folders[Header.Path.section('/', -1).chopped(2).toStdString()] = Header.Path.section('/', 1, 1);
  }
  TMissing Missing;
  std::map<std::string, int> Places;
  bool IsAmongDialogs = false;
  for (int Place = 0; Place < Table.UnitCount; ++Place) {
    const std::string Unit = Table.Units[Place];
    Places[Unit] = Place;
    if (!Folders.contains(Unit)) Missing.Add("There is no unit ", Unit, " as in src/module/PackageEntry.cpp.");
    const bool IsDialog = Folders[Unit] == "picks";
    if (IsAmongDialogs && !IsDialog) Missing.Add(Unit, " stands behind a dialog in src/module/PackageEntry.cpp.");
    IsAmongDialogs = IsDialog;
  }
  for (const TOpened& Each : All_) {
    if (Each.Dialog == nullptr) continue;
    const std::string Unit = support::UnitOf(ClassOf(*Each.Dialog).toStdString());
    for (const QMetaObject* Base = Each.Dialog->metaObject()->superClass(); Base != nullptr;
         Base = Base->superClass()) {
      const auto Found = Places.find(support::UnitOf(Base->className()));
      if (Found == Places.end() || Found->second <= Places[Unit]) continue;
      Missing.Add(Unit, " must stand behind ", Found->first, " in src/module/PackageEntry.cpp.");
    }
  }
  VERIFY_NOTHING(Missing);
}

void tst_NothingForgotten::shouldHaveArgumentsOfPicksOnly() {
  TMissing Missing;
  for (const std::string& Name : support::SamplesOfNoPick()) {
    Missing.Add("There is no pick ", Name, " in the catalog, as in tests/support/EveryDialog.cpp.");
  }
  VERIFY_NOTHING(Missing);
}

void tst_NothingForgotten::shouldOpenEveryPickOverTheSampleCompany() {
  TMissing Missing;
  for (const TOpened& Each : All_) {
    if (Each.Failure.empty()) continue;
    Missing.Add(Each.Sample->Name, ": ", Each.Failure,
                " Its table belongs in sample/schema.sql, rows in sample/tables, ",
                "arguments for which it lists something in tests/support/EveryDialog.cpp.");
  }
  VERIFY_NOTHING(Missing);
}

void tst_NothingForgotten::shouldHaveAReasonWhereNothingIsListedWithoutArguments() {
  std::set<std::string> Excused;
  for (const TListsNothing& Each : ListsNothing()) {
    QVERIFY2(catalog::FullCatalog().Find(Each.Pick) != nullptr && !Each.Reason.empty(), Each.Pick.c_str());
    QVERIFY2(Excused.insert(Each.Pick).second, Each.Pick.c_str());
  }
  TMissing Missing;
  for (const catalog::TPick& Pick : catalog::FullCatalog().All()) {
    const catalog::TArgs Defaults(Pick.Args);
    const TSampleDialog Sample{
        Pick.Name, [&](ads::TAdsConnection* Connection) { return support::DialogOf(Pick, Defaults, Connection); },
        &Pick};
    const std::string Failure = Open(Sample, Company_.Connection()).Failure;
    if (!Failure.empty() && !Excused.contains(Pick.Name)) {
      Missing.Add(Pick.Name, " without arguments: ", Failure,
                  " Where that is right, the reason belongs to ListsNothing in this test.");
    }
    if (Failure.empty() && Excused.contains(Pick.Name)) {
      Missing.Add(Pick.Name, " lists something without arguments: it needs no excuse in this test.");
    }
  }
  VERIFY_NOTHING(Missing);
}

void tst_NothingForgotten::shouldHaveEveryTableInTheSampleCompany() {
  // As the sources name them, because a dialog without its table does not open, and as the queries do, because some
  // names are put together.
  static const QRegularExpression Named(
      QStringLiteral("\"[^\"\n]*\\b(?:FROM|JOIN) +\\(*\\[?(\\w+)|SetTableName\\(\"(\\w+)\"\\)"));
  std::map<std::string, QString> Users;
  for (const char* Folder : {"src/pickbase", "src/picks"}) {
    for (const TSource& Source : SourcesIn(QString::fromLatin1(Folder), QStringLiteral("*.cpp"))) {
      for (const QRegularExpressionMatch& Match : Named.globalMatch(Source.Text)) {
        Users[zulcommon::UpperCase((Match.captured(1) + Match.captured(2)).toStdString())] = Source.Path;
      }
    }
  }
  for (const TOpened& Each : All_) {
    if (Each.Dialog == nullptr) continue;
    for (const std::string& Table : Tables(Each.Dialog->qryList_->SQL()->Text())) Users[Table] = ClassOf(*Each.Dialog);
  }
  QVERIFY(!Users.empty());
  std::set<std::string> Present;
  for (const std::string& Table : Company_.Texts("SELECT UPPER(name) FROM sqlite_master WHERE type = 'table'")) {
    Present.insert(Table);
  }
  TMissing Missing;
  for (const auto& [Table, User] : Users) {
    if (!Present.contains(Table)) {
      Missing.Add(User, " reads the table ", Table, ", which the sample company has not: add it to sample/schema.sql.");
    } else if (Company_.Text(QStringLiteral("SELECT COUNT(*) FROM \"%1\"").arg(QString::fromStdString(Table))) == "0") {
      Missing.Add(User, " reads the table ", Table, ", which is empty: add rows to it in sample/tables.");
    }
  }
  VERIFY_NOTHING(Missing);
}

void tst_NothingForgotten::shouldHaveGoldenTextsOfEveryOrderOfEveryDialog() {
  std::set<std::string> Kept;
  for (const TGoldenCase& Case : ReadGoldenCases()) Kept.insert(ListAndOrder(Case.Dialog));
  std::map<std::pair<QString, int>, std::string> Wanted;  // by class and order; empty when a case has it
  for (const TOpened& Each : All_) {
    if (Each.Dialog == nullptr) continue;
    const support::TErrorBoxes Boxes;
    const auto Fresh = Each.Sample->Create(Company_.Connection());
    for (const TOrdered& Ordered : Queries(*Fresh)) {
      const auto [Place, IsFirst] = Wanted.try_emplace({ClassOf(*Fresh), Ordered.Order}, Ordered.Sql);
      if (!Place->second.empty() && Kept.contains(ListAndOrder(Ordered.Sql))) Place->second.clear();
    }
  }
  TMissing Missing;
  for (const auto& [Place, Sql] : Wanted) {
    if (Sql.empty()) continue;
    Missing.Add("No golden text of ", Place.first, " ordered by ", Place.second, ": add to tests/ads/golden/",
                FamilyOf(support::UnitOf(Place.first.toStdString())), ".txt, after a look at it,\n=== ", Place.first,
                ": ordered by ", Place.second, ", descending\n", Sql, "\n--- SQLite\n",
                ads::sql::TSQLiteDialect().Rewrite(Sql), "\n--- PostgreSQL\n",
                ads::sql::TPostgreSQLDialect().Rewrite(Sql), "\n");
  }
  VERIFY_NOTHING(Missing);
}

// What stands in place of a text that is missing.
void tst_NothingForgotten::shouldShowNoNumberInPlaceOfAText() {
  static const QRegularExpression Placeholder(QStringLiteral("#(-?\\d+)"));
  TMissing Missing;
  for (const TOpened& Each : All_) {
    if (Each.Dialog == nullptr) continue;
    const auto Tell = [&](const QString& Place, const QString& Text) {
      for (const QString& Number : AllMatches(Text, Placeholder)) {
        Missing.Add(Each.Sample->Name, ", ", Place, ": there is no text ", Number,
                    "; add it to src/zulcommon/strings/en.txt.");
      }
    };
    HearCells(*Each.Dialog);
    for (const auto& [Place, Text] : ShownTexts(*Each.Dialog)) Tell(Place, Text);
    for (const std::string& Message : Messages(*Each.Dialog)) Tell("a message", QString::fromStdString(Message));
    for (const auto& [Place, Text] : ShownTexts(*Each.Dialog)) Tell(Place, Text);
  }
  for (const std::int32_t Number : LoadedTexts()) {
    if (NumbersOfTexts().contains(Number)) continue;
    Missing.Add("The text ", Number, " is loaded, but there is none: add it to src/zulcommon/strings/en.txt.");
  }
  VERIFY_NOTHING(Missing);
}

void tst_NothingForgotten::shouldLoadEveryTextThereIs() {
  TMissing Missing;
  for (const std::int32_t Number : NumbersOfTexts()) {
    if (LoadedTexts().contains(Number)) continue;
    Missing.Add("Nobody loads the text ", Number, ": is it still needed in src/zulcommon/strings/en.txt?");
  }
  VERIFY_NOTHING(Missing);
}

void tst_NothingForgotten::shouldOfferShortAndDifferentChoices() {
  constexpr int Room = 58;  // of a choice on the form
  const QFontMetrics Metrics(toolkit::TForm::FormFont());
  TMissing Missing;
  for (const TOpened& Each : All_) {
    if (Each.Dialog == nullptr) continue;
    for (const toolkit::TRadioGroup* Group : {Each.Dialog->rgFindBy, Each.Dialog->rgOrderBy}) {
      std::set<std::string> Seen;
      for (const std::string& Choice : support::Items(*Group)) {
        if (!Seen.insert(Choice).second)
          Missing.Add(Each.Sample->Name, " offers ", Choice, " twice: take another text.");
        if (Metrics.horizontalAdvance(QString::fromStdString(Choice)) <= Room) continue;
        Missing.Add(Each.Sample->Name, ": the choice ", Choice, " is cut off: take a shorter text.");
      }
    }
  }
  VERIFY_NOTHING(Missing);
}

void tst_NothingForgotten::shouldHaveATestOfItsOwnForEveryPick() {
  QString Tests;
  for (const TSource& Test : SourcesIn(QStringLiteral("tests/picks"), QStringLiteral("*.cpp"))) {
    if (!Test.Path.endsWith("tst_AllPicks.cpp")) Tests += Test.Text;
  }
  for (const TSource& Header : SourcesIn(QStringLiteral("tests/picks"), QStringLiteral("*.h"))) Tests += Header.Text;
  TMissing Missing;
  for (const support::TExportedFunction& Function : support::ExportedPickFunctions()) {
    const QString Called = QString::fromStdString(Function.Name).section("::", 1);
    if (Tests.contains(QRegularExpression("\\b" + Called + "\\b"))) continue;
    const QString Family = FamilyOf(support::UnitOf(Function.Name));
    Missing.Add("No test in tests/picks calls ", Function.Name, ": write one and add it to tests/picks/", Family,
                ".cmake.");
  }
  VERIFY_NOTHING(Missing);
}

QTEST_MAIN(tst_NothingForgotten)
#include "tst_NothingForgotten.moc"
