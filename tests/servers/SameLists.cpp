#include "servers/SameLists.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QTest>
#include <algorithm>

#include "ads/Ads.h"
#include "support/PickDriver.h"
#include "toolkit/Formats.h"
#include "zulcommon/Text.h"

using uDocPickBase::TDocPickBase;

namespace support {

namespace {

/// What a dialog lists: its rows in groups of equal sort value. Rows of one group may come in any order.
struct TListing {
  std::string Outcome;
  std::string Sql;
  std::vector<std::vector<std::string>> Groups;

  bool operator==(const TListing&) const = default;
};

/// Whether the values that the dialog itself puts into its rows are compared, too; to look them up takes its time.
enum class TDepth { Data, Everything };

constexpr char SortColumn[] = "SortFld";

// Has the dialog read the values by which its list is ordered as well, where they have a column of their own.
void ReadSortColumn(TDocPickBase& Dialog) {
  if (zulcommon::UpperCase(Dialog.qryList_->SQL()->Text()).find("SORTFLD") == std::string::npos) return;
  Dialog.qryList_->Close();
  Dialog.qryList_->AddField(SortColumn, ads::TFieldType::ftString, 255);
  Dialog.CallSetSQL();
}

const ads::TField* SortField(const TDocPickBase& Dialog) {
  const std::vector<ads::TField*>& Fields = Dialog.qryList_->Fields();
  return Fields.back()->FieldName() == SortColumn ? Fields.back() : nullptr;
}

// As many digits as every driver gives of a floating number; the display formats show fewer.
std::string ValueText(const ads::TField& Field) {
  if (Field.IsNull()) return "null";
  if (Field.DataType() != ads::TFieldType::ftFloat) return "'" + Field.AsString() + "'";
  return QString::number(Field.AsFloat(), 'g', 15).toStdString();
}

std::string RowText(const TDocPickBase& Dialog, TDepth Depth) {
  std::string Row;
  for (const ads::TField* Field : Dialog.qryList_->Fields()) {
    if (Field->FieldName() == SortColumn) continue;
    if (Depth == TDepth::Data && Field->Kind() != ads::TFieldKind::fkData) continue;
    Row += ValueText(*Field) + ' ';
  }
  return Row;
}

std::vector<std::vector<std::string>> Groups(const TDocPickBase& Dialog, TDepth Depth) {
  std::vector<std::vector<std::string>> Result;
  const ads::TField* Sort = SortField(Dialog);
  std::string Before;
  for (int Row = 0; Row < Dialog.qryList_->RecordCount(); ++Row) {
    const ads::TRowScope Scope(*Dialog.qryList_, Row);
    const std::string Value = Sort == nullptr ? std::to_string(Row) : Sort->IsNull() ? "null" : "'" + Sort->AsString();
    if (Row == 0 || Value != Before) Result.emplace_back();
    Result.back().push_back(RowText(Dialog, Depth));
    Before = Value;
  }
  for (std::vector<std::string>& Group : Result) std::sort(Group.begin(), Group.end());
  return Result;
}

// The servers word their own messages; the dialogs' are the same everywhere.
std::string Query(TDocPickBase& Dialog) {
  try {
    Dialog.CallSetSQL();
    return "opened";
  } catch (const ads::EDatabaseError&) {
    return "refused by the database";
  } catch (const std::exception& Error) {
    return Error.what();
  }
}

std::string Shown(const std::vector<std::string>& Group) {
  std::string Result;
  for (const std::string& Row : Group) Result += "\n    " + Row;
  return Result;
}

std::string Difference(const TListing& Expected, const TListing& Actual) {
  if (Actual.Outcome != Expected.Outcome) return Actual.Outcome + " instead of " + Expected.Outcome;
  if (Actual.Sql != Expected.Sql) return "asked\n" + Actual.Sql + "\ninstead of\n" + Expected.Sql;
  const auto At =
      std::mismatch(Expected.Groups.begin(), Expected.Groups.end(), Actual.Groups.begin(), Actual.Groups.end());
  std::string Result = std::to_string(Actual.Groups.size()) + " groups, " + std::to_string(Expected.Groups.size()) +
                       " expected; group " + std::to_string(At.first - Expected.Groups.begin()) + " is";
  Result += At.second == Actual.Groups.end() ? " missing" : Shown(*At.second);
  Result += "\n  instead of";
  return Result + (At.first == Expected.Groups.end() ? " none" : Shown(*At.first));
}

/// The same dialog over every connection, set alike and compared after each query. The first is what the others are
/// compared with.
class TSameDialogs {
 public:
  TSameDialogs(const TSampleDialog& Sample, const std::vector<TCompared>& Over) {
    for (const TCompared& Each : Over) {
      Dialogs_.push_back(Sample.Create(Each.Connection));
      Names_ << Each.Name;
      Silence(*Dialogs_.back());
      ReadSortColumn(*Dialogs_.back());
    }
  }

  TDocPickBase& First() { return *Dialogs_.front(); }
  const QStringList& Differences() const { return Differences_; }

  void SetOrder(int Index, bool Descending) {
    for (const auto& Dialog : Dialogs_) {
      Dialog->rgOrderBy->SetItemIndex(Index);
      const QSignalBlocker Quiet(Dialog->ckbDesc);
      Dialog->ckbDesc->setChecked(Descending);
    }
  }
  void SetFind(int Index, const QString& Text) {
    for (const auto& Dialog : Dialogs_) {
      Dialog->rgFindBy->SetItemIndex(Index);
      const QSignalBlocker Quiet(Dialog->edFind);
      Dialog->edFind->setText(Text);
    }
  }
  void Toggle(int Box) {
    for (const auto& Dialog : Dialogs_) Boxes(*Dialog)[Box]->toggle();
  }

  /// The dialog's check boxes besides that for the descending order.
  static QList<QCheckBox*> Boxes(TDocPickBase& Dialog) {
    QList<QCheckBox*> Result = Dialog.pnlForm->findChildren<QCheckBox*>();
    Result.removeOne(Dialog.ckbDesc);
    return Result;
  }

  void Compare(const QString& Step, TDepth Depth = TDepth::Data) {
    const TListing Expected = ListingOf(First(), Depth);
    for (std::size_t Index = 1; Index < Dialogs_.size(); ++Index) {
      const TListing Actual = ListingOf(*Dialogs_[Index], Depth);
      ++Comparisons;
      if (Actual == Expected) continue;
      Differences_ << QStringLiteral("%1, %2: %3")
                          .arg(Step, Names_[Index], QString::fromStdString(Difference(Expected, Actual)));
    }
  }

  static inline int Comparisons = 0;

 private:
  // The error boxes that a dialog shows belong to what comes of a query.
  TListing ListingOf(TDocPickBase& Dialog, TDepth Depth) {
    const std::size_t Before = Errors_.Messages().size();
    TListing Result;
    Result.Outcome = Query(Dialog);
    for (std::size_t Index = Before; Index < Errors_.Messages().size(); ++Index) {
      Result.Outcome += ", told \"" + Errors_.Messages()[Index] + "\"";
    }
    Result.Sql = Dialog.qryList_->SQL()->Text();
    Result.Groups = Groups(Dialog, Depth);
    return Result;
  }

  // A choice is made without a query of its own; each step queries once.
  static void Silence(TDocPickBase& Dialog) {
    Dialog.rgFindBy->OnClick = {};
    Dialog.rgOrderBy->OnClick = {};
  }

  const TErrorBoxes Errors_;
  std::vector<std::unique_ptr<TDocPickBase>> Dialogs_;
  QStringList Names_;
  QStringList Differences_;
};

const QStringList& FindTexts() {
  static const QStringList Texts{"a",
                                 "O'N",
                                 QString::fromUtf8("é"),
                                 QString::fromUtf8("É"),
                                 QString::fromUtf8("ß"),
                                 QString::fromUtf8("š"),
                                 QString::fromUtf8("Š"),
                                 QString::fromUtf8("σς"),
                                 "'",
                                 "%",
                                 "_",
                                 "0% o",
                                 "r_s",
                                 "\\",
                                 "\\%",
                                 "[a]",
                                 "a  ",
                                 "1",
                                 "-1",
                                 "1.50",
                                 "1e3",
                                 "31/12/2025",
                                 QString(2000, 'x')};
  return Texts;
}

// The sanitizers look into the same code, which takes them several times as long: there each choice takes a part of the
// texts, the next one the next part.
QStringList ShareOf(const QStringList& Texts) {
#ifdef __SANITIZE_ADDRESS__
  constexpr int Parts = 4;
#else
  constexpr int Parts = 1;
#endif
  static int Place = 0;
  QStringList Result;
  for (qsizetype Index = Place++ % Parts; Index < Texts.size(); Index += Parts) Result << Texts[Index];
  return Result;
}

const ads::TField* ColumnCalled(const TDocPickBase& Dialog, const std::string& Title) {
  for (const toolkit::TColumn* Column : Dialog.dbgAvail->Columns()) {
    if (Column->Title() == Title) return Column->Field();
  }
  return nullptr;
}

// What somebody would type who looks for what stands in the field.
QString Typed(const ads::TField& Field) {
  if (Field.DataType() == ads::TFieldType::ftDate && !Field.IsNull()) {
    return QString::fromStdString(toolkit::FormatDate(toolkit::ShortDateFormat(), Field.AsDate()));
  }
  return QString::fromStdString(Field.AsString());
}

bool IsAscii(const QString& Text) {
  return std::all_of(Text.begin(), Text.end(), [](QChar Letter) { return Letter.unicode() < 0x80; });
}

// Texts that the choice finds: one out of the middle of the list and, in the other case, the first one with an accent.
QStringList OwnTexts(TDocPickBase& Dialog, int FindBy) {
  const ads::TField* Field = ColumnCalled(Dialog, Dialog.rgFindBy->Items()[FindBy]);
  const int Count = Dialog.qryList_->RecordCount();
  if (Field == nullptr || Count == 0) return {};
  QStringList Result;
  {
    const ads::TRowScope Middle(*Dialog.qryList_, Count / 2);
    Result << Typed(*Field);
  }
  for (int Row = 0; Row < Count && Result.size() < 2; ++Row) {
    const ads::TRowScope Scope(*Dialog.qryList_, Row);
    if (const QString Text = Typed(*Field); !IsAscii(Text)) Result << Text.toLower();
  }
  return Result;
}

void AddDialogs() {
  QTest::addColumn<int>("Index");
  int Index = 0;
  for (const TSampleDialog& Sample : EveryDialog()) QTest::newRow(Sample.Name.c_str()) << Index++;
}

// Those of the running test's row.
TSameDialogs Dialogs(const std::vector<TCompared>& Over) {
  const int Index = *static_cast<int*>(QTest::qData("Index", qMetaTypeId<int>()));
  return TSameDialogs(EveryDialog()[static_cast<std::size_t>(Index)], Over);
}

void CompareOrders(TSameDialogs& Dialogs, const QString& Step) {
  const int Default = Dialogs.First().rgOrderBy->ItemIndex();
  const int Count = Dialogs.First().rgOrderBy->Items().Count();
  for (int Order = 0; Order < Count; ++Order) {
    for (const bool Descending : {false, true}) {
      Dialogs.SetOrder(Order, Descending);
      Dialogs.Compare(QStringLiteral("%1order %2%3").arg(Step).arg(Order).arg(Descending ? " descending" : ""));
    }
  }
  Dialogs.SetOrder(Default, false);
}

void CompareFinds(TSameDialogs& Dialogs, const QString& Step, const QStringList& Texts) {
  const int Default = Dialogs.First().rgFindBy->ItemIndex();
  const int Count = Dialogs.First().rgFindBy->Items().Count();
  for (int FindBy = 0; FindBy < Count; ++FindBy) {
    Dialogs.SetFind(Default, QString());
    Dialogs.Compare(Step + "whole list");
    for (const QString& Text : ShareOf(Texts) + OwnTexts(Dialogs.First(), FindBy)) {
      Dialogs.SetFind(FindBy, Text);
      Dialogs.Compare(QStringLiteral("%1find by %2 \"%3\"").arg(Step).arg(FindBy).arg(Text.left(50)));
    }
  }
  Dialogs.SetFind(Default, QString());
}

}  // namespace

int TSameLists::Comparisons() {
  return TSameDialogs::Comparisons;
}

void TSameLists::shouldListTheSameInEveryOrder_data() {
  AddDialogs();
}

void TSameLists::shouldListTheSameInEveryOrder() {
  TSameDialogs Same = Dialogs(Over);
  QVERIFY(!Same.First().qryList_->IsEmpty());
  Same.Compare("as it opens", TDepth::Everything);
  CompareOrders(Same, "");
  QVERIFY2(Same.Differences().isEmpty(), qPrintable(Same.Differences().join('\n')));
}

void TSameLists::shouldFindTheSame_data() {
  AddDialogs();
}

void TSameLists::shouldFindTheSame() {
  TSameDialogs Same = Dialogs(Over);
  CompareFinds(Same, "", FindTexts());
  QVERIFY2(Same.Differences().isEmpty(), qPrintable(Same.Differences().join('\n')));
}

void TSameLists::shouldListTheSameWithItsBoxesTurned_data() {
  AddDialogs();
}

void TSameLists::shouldListTheSameWithItsBoxesTurned() {
  TSameDialogs Same = Dialogs(Over);
  for (int Box = 0; Box < TSameDialogs::Boxes(Same.First()).size(); ++Box) {
    const QString Step = TSameDialogs::Boxes(Same.First())[Box]->objectName() + ", ";
    Same.Toggle(Box);
    Same.Compare(Step + "as it is turned", TDepth::Everything);
    CompareOrders(Same, Step);
    CompareFinds(Same, Step, {"a", QString::fromUtf8("é"), "%"});
    Same.Toggle(Box);
  }
  QVERIFY2(Same.Differences().isEmpty(), qPrintable(Same.Differences().join('\n')));
}

}  // namespace support
