// The texts of every dialog in other words than the English ones: German, marks that tell where a text comes from, and
// texts that are too long.
#include <QCheckBox>
#include <QGroupBox>
#include <QHelpEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMap>
#include <QMenu>
#include <QPushButton>
#include <QRadioButton>
#include <QTemporaryFile>
#include <QTest>
#include <QToolTip>

#include "frame/uZULPickPlsWait.h"
#include "pickbase/uDocPickMultiBase.h"
#include "picks/parties/uPickCustomer.h"
#include "support/EveryDialog.h"
#include "support/PickDriver.h"
#include "support/Screens.h"
#include "support/TestCompany.h"
#include "toolkit/ActionButton.h"
#include "toolkit/CheckBox.h"
#include "toolkit/GroupBox.h"
#include "toolkit/Label.h"
#include "toolkit/Mnemonic.h"
#include "toolkit/WholeText.h"
#include "zulcommon/StringTable.h"
#include "zulcommon/TextCheck.h"

using uDocPickBase::TDocPickBase;

namespace {

constexpr QRect Large(0, 0, 1920, 1200);

QStringList LinesOf(const QString& FileName) {
  QFile File(FileName);
  if (!File.open(QIODevice::ReadOnly)) qFatal("a table cannot be read");
  return QString::fromUtf8(File.readAll()).split(u'\n');
}

const QStringList EnglishTables{":/zul/strings/en.txt", ":/zul/strings/en.names.txt"};

// The English texts by number or name.
QMap<QString, QString> English() {
  QMap<QString, QString> Texts;
  for (const QString& Table : EnglishTables) {
    for (const QString& Line : LinesOf(Table)) {
      if (!Line.startsWith(u'#') && Line.contains(u'\t')) Texts[Line.section(u'\t', 0, 0)] = Line.section(u'\t', 1);
    }
  }
  return Texts;
}

// While it lives, every English text is another one.
class TOtherTexts {
 public:
  explicit TOtherTexts(const std::function<QString(const QString& Key, const QString& Text)>& Other) {
    if (!File_.open()) qFatal("a table cannot be written");
    const QMap<QString, QString> Texts = English();
    for (auto Each = Texts.begin(); Each != Texts.end(); ++Each) {
      File_.write((Each.key() + u'\t' + Other(Each.key(), Each.value()) + u'\n').toUtf8());
    }
    File_.close();
    zulcommon::LoadStringTable(File_.fileName().toStdString());
  }
  ~TOtherTexts() { zulcommon::ResetStringTable(); }
  TOtherTexts(const TOtherTexts&) = delete;
  TOtherTexts& operator=(const TOtherTexts&) = delete;

 private:
  QTemporaryFile File_;
};

// "«2000»", "«65521 %s»".
QString Mark(const QString& Key, const QString& Text) {
  QString Marks;
  for (qsizetype Count = Text.count("%s"); Count > 0; --Count) Marks += " %s";
  return u"«"_qs + Key + Marks + u"»"_qs;
}

QString Doubled(const QString&, const QString& Text) {
  QString Again = Text;
  return Text + " and " + Again.remove("%s").remove(u'&');
}

// Every text that a dialog shows or says, of each widget under its name.
QMultiMap<QString, QString> TextsOf(const TDocPickBase& Dialog) {
  QMultiMap<QString, QString> Texts{{"Caption", Dialog.windowTitle()}, {"edFind", Dialog.edFind->placeholderText()}};
  for (const auto* Each : Dialog.findChildren<QGroupBox*>()) Texts.insert(Each->objectName(), Each->title());
  for (const auto* Each : Dialog.findChildren<QAbstractButton*>()) Texts.insert(Each->objectName(), Each->text());
  for (const auto* Each : Dialog.findChildren<QLabel*>()) Texts.insert(Each->objectName(), Each->text());
  for (const auto* Each : Dialog.findChildren<QAction*>()) Texts.insert(Each->objectName(), Each->text());
  for (const auto* Each : Dialog.dbgAvail->Columns()) {
    Texts.insert("Title", QString::fromStdString(Each->Title()));
    Texts.insert("AccessibleTitle", QString::fromStdString(Each->AccessibleTitle()));
  }
  return Texts;
}

// The pixels of a place: in the form's font, in bold, within another text.
struct TPlace {
  std::optional<int> Plain;
  std::optional<int> Bold;
  QMap<int, int> Within;

  QString Text() const {
    QStringList Items;
    if (Plain) Items += QString::number(*Plain);
    if (Bold) Items += "bold " + QString::number(*Bold);
    for (auto Each = Within.begin(); Each != Within.end(); ++Each)
      Items += QStringLiteral("in %1 %2").arg(Each.key()).arg(Each.value());
    return Items.isEmpty() ? "any" : Items.join("; ");
  }
};

void Narrow(std::optional<int>& Place, int Pixels) {
  Place = Place ? std::min(*Place, Pixels) : Pixels;
}

using TPlaces = QMap<QString, TPlace>;

// Where a text stands that is marked so: "«2000»" alone, or "«65522 «52»»" within another.
void Place(TPlaces& Places, const QString& Marked, int Pixels) {
  const QStringList Parts = QString(Marked).remove(u'»').split(u'«', Qt::SkipEmptyParts);
  if (Parts.size() == 1) return Narrow(Places[Parts[0]].Plain, Pixels);
  if (Parts.size() != 2) return;
  int& Within = Places[Parts[1]].Within[Parts[0].trimmed().toInt()];
  Within = Within == 0 ? Pixels : std::min(Within, Pixels);
}

// A column that does not become wider with its title.
bool HasFixedWidth(toolkit::TColumn& Column) {
  const int Width = Column.Width();
  Column.Field()->SetDisplayLabel(std::string(500, 'W'));
  return Column.Width() == Width;
}

// The dialog's places, from one in English and one in which each text is marked.
void PlacesOf(TPlaces& Places, const TDocPickBase& Plain, const TDocPickBase& Marked) {
  for (const auto* Box : Plain.findChildren<toolkit::TGroupBox*>()) {
    Place(Places, Marked.findChild<QGroupBox*>(Box->objectName())->title(), Box->CaptionRoom());
  }
  for (const auto* Box : Plain.findChildren<toolkit::TCheckBox*>()) {
    Place(Places, Marked.findChild<QCheckBox*>(Box->objectName())->text(), Box->CaptionRoom());
  }
  for (const auto* Button : Plain.findChildren<toolkit::TActionButton*>()) {
    Place(Places, Marked.findChild<QPushButton*>(Button->objectName())->text(), Button->CaptionRoom());
  }
  for (const std::string& Item : Marked.rgFindBy->Items()) {
    Place(Places, QString::fromStdString(Item), Plain.rgFindBy->ChoiceRoom());
  }
  for (toolkit::TColumn* Column : Marked.dbgAvail->Columns()) {
    const QString Key = QString::fromStdString(Column->Title()).remove(u'«').remove(u'»').trimmed();
    if (Key.isEmpty() || !HasFixedWidth(*Column)) continue;
    constexpr int Margins = 4;
    Narrow(Places[Key].Bold, Plain.dbgAvail->Columns()[Column->Index()]->Width() - Margins);
  }
}

// A table's lines with the places before the texts that stand in them.
QStringList WithPlaces(const QStringList& Lines, const TPlaces& Places) {
  QStringList Result;
  QString Before = "any";
  for (const QString& Line : Lines) {
    if (Line.startsWith("# pixels: ")) continue;
    if (Line.isEmpty()) Before = "any";
    if (Line.contains(u'\t')) {
      const QString Here = Places.value(Line.section(u'\t', 0, 0)).Text();
      if (Here != Before) Result += "# pixels: " + Here;
      Before = Here;
    }
    Result += Line;
  }
  return Result;
}

// A tool tip goes only some time after it is told to.
void HideToolTip() {
  for (QWidget* Window : QApplication::topLevelWidgets()) {
    if (Window->inherits("QTipLabel")) Window->hide();
  }
}

QString ToolTipOf(QWidget& Over) {
  HideToolTip();
  const QPoint At(3, 3);
  QHelpEvent Event(QEvent::ToolTip, At, Over.mapToGlobal(At));
  QCoreApplication::sendEvent(&Over, &Event);
  const QString Text = QToolTip::isVisible() ? QToolTip::text() : QString();
  HideToolTip();
  return Text;
}

// What is wrong with a control that has so much room for its caption: one that is too long looks as one that is cut off
// by an ellipsis, and is told as a whole; any other is not told.
QString Wrong(QWidget& Control, int Room, const QString& Caption,
              const std::function<void(const QString&)>& SetCaption) {
  constexpr int Flags = Qt::TextSingleLine | Qt::TextShowMnemonic;
  const bool Fits = Control.fontMetrics().size(Flags, Caption).width() <= Room;
  const QString Told = ToolTipOf(Control);
  if (Told != (Fits ? QString() : toolkit::WithoutMnemonic(Caption))) return Control.objectName() + " tells " + Told;
  const QImage Whole = Control.grab().toImage();
  SetCaption(Control.fontMetrics().elidedText(Caption, Qt::ElideRight, Room, Flags));
  const bool IsSame = Control.grab().toImage() == Whole;
  SetCaption(Caption);
  return IsSame ? QString() : Control.objectName() + " shows more than fits of " + Caption;
}

QString AnythingWrong(const TDocPickBase& Dialog) {
  QStringList All;
  for (auto* Each : Dialog.findChildren<toolkit::TActionButton*>()) {
    All += Wrong(*Each, Each->CaptionRoom(), Each->text(), [&](const QString& Text) { Each->setText(Text); });
  }
  for (auto* Each : Dialog.findChildren<toolkit::TCheckBox*>()) {
    All += Wrong(*Each, Each->CaptionRoom(), Each->text(), [&](const QString& Text) { Each->setText(Text); });
  }
  for (auto* Each : Dialog.findChildren<toolkit::TGroupBox*>()) {
    All += Wrong(*Each, Each->CaptionRoom(), Each->title(), [&](const QString& Text) { Each->setTitle(Text); });
  }
  for (const toolkit::TRadioGroup* Group : {Dialog.rgFindBy, Dialog.rgOrderBy}) {
    for (int Index = 0; Index < Group->Items().Count(); ++Index) {
      QRadioButton* Button = Group->Button(Index);
      All += Wrong(*Button, Group->ChoiceRoom(), Button->text(), [&](const QString& Text) { Button->setText(Text); });
    }
  }
  const QAbstractItemModel& Model = *Dialog.dbgAvail->model();
  for (const toolkit::TColumn* Column : Dialog.dbgAvail->Columns()) {
    const QString Title = QString::fromStdString(Column->Title());
    constexpr int Margins = 4;
    const bool Fits = QFontMetrics(toolkit::TForm::TitleFont()).horizontalAdvance(Title) <= Column->Width() - Margins;
    const QString Told = Model.headerData(Column->Index(), Qt::Horizontal, Qt::ToolTipRole).toString();
    if (Told.isEmpty() != Fits) All += "Title " + Title + " tells " + Told;
  }
  All.removeAll(QString());
  return All.join("; ");
}

int WidthOf(const std::string& Text, bool Bold) {
  return toolkit::TextWidth(QString::fromStdString(Text), Bold);
}

}  // namespace

class tst_Languages : public QObject {
  Q_OBJECT

  support::TTestCompany Company_;

  std::unique_ptr<TDocPickBase> Dialog(int Index) {
    return support::EveryDialog()[static_cast<std::size_t>(Index)].Create(Company_.Connection());
  }
  static int Count() { return static_cast<int>(support::EveryDialog().size()); }

 private Q_SLOTS:
  void cleanup() { zulcommon::ResetStringTable(); }
  void shouldTakeEveryTextOfADialogFromTheTable_data() { AddDialogs(); }
  void shouldTakeEveryTextOfADialogFromTheTable();
  void shouldNameNoTextThatNoDialogHas();
  void shouldTellHowManyPixelsEachPlaceHas();
  void shouldFindNothingWrongWithTheBuiltInTables();
  void shouldTellWholeWhatDoesNotFit_data() { AddDialogs(); }
  void shouldTellWholeWhatDoesNotFit();
  void shouldCutOffWhatTheWaitWindowHasNoRoomFor();
  void shouldShowADialogInGerman();
  void shouldSayInGermanWhatWasFound();
  void shouldKeepTheLanguageOfADialogThatIsOpen();
  void shouldHaveATextForOneDialogAlone();
  void shouldLeaveACallersCaptionAlone();

 private:
  static void AddDialogs() {
    QTest::addColumn<int>("Index");
    for (int Index = 0; Index < Count(); ++Index) {
      QTest::newRow(support::EveryDialog()[static_cast<std::size_t>(Index)].Name.c_str()) << Index;
    }
  }
};

// So also: what stands in the dialogs in English is letter by letter what the tables know under the names.
void tst_Languages::shouldTakeEveryTextOfADialogFromTheTable() {
  QFETCH(int, Index);
  const TOtherTexts Marked(Mark);
  const auto Pick = Dialog(Index);
  const QMultiMap<QString, QString> Texts = TextsOf(*Pick);
  for (auto Each = Texts.begin(); Each != Texts.end(); ++Each) {
    const QString Text = Each.value().trimmed();
    const bool IsMarked = Text.isEmpty() || (Text.startsWith(u'«') && (Text.contains(u'»')));
    QVERIFY2(IsMarked, qPrintable(Each.key() + ": " + Text));
  }
}

void tst_Languages::shouldNameNoTextThatNoDialogHas() {
  const TOtherTexts Marked(Mark);
  QString All;
  for (int Index = 0; Index < Count(); ++Index) All += TextsOf(*Dialog(Index)).values().join(u'\n');
  // What stands in a dialog at times only; the last two where a record is not found.
  const QStringList AtTimes{"lblRows.",
                            "dbgAvail.",
                            "edFind.",
                            "ErrorBox.",
                            "frmPickKitDetail.PickCaption",
                            "frmPickItemPresetDetail.PickCaption"};
  for (const QString& Key : English().keys()) {
    if (Key[0].isDigit()) continue;
    if (std::any_of(AtTimes.begin(), AtTimes.end(), [&](const QString& Start) { return Key.startsWith(Start); }))
      continue;
    QVERIFY2(All.contains("«" + Key + "»") || All.contains("«" + Key + " "), qPrintable(Key));
  }
}

void tst_Languages::shouldTellHowManyPixelsEachPlaceHas() {
  TPlaces Places;
  for (int Index = 0; Index < Count(); ++Index) {
    const auto Plain = Dialog(Index);
    const TOtherTexts Marked(Mark);
    PlacesOf(Places, *Plain, *Dialog(Index));
  }
  const uZULPickPlsWait::TZULPickPlsWait Wait(nullptr, "", false);
  const int Dots = toolkit::TextWidth("...");
  Narrow(Places["65520"].Plain, static_cast<toolkit::TGroupBox*>(Wait.gbPleaseWait)->CaptionRoom() - Dots);
  Narrow(Places["5000"].Plain, Wait.lblStatus->contentsRect().width());
  for (const QString& Table : EnglishTables) {
    const QStringList Wanted = WithPlaces(LinesOf(Table), Places);
    const QString Folder = qEnvironmentVariable("ZUL_WRITE_TEXTS");  // to bring the tables up to date
    if (!Folder.isEmpty()) {
      QFile File(Folder + u'/' + Table.section(u'/', -1));
      QVERIFY(File.open(QIODevice::WriteOnly));
      File.write(Wanted.join(u'\n').toUtf8());
    } else {
      QCOMPARE(LinesOf(Table), Wanted);
    }
  }
}

void tst_Languages::shouldFindNothingWrongWithTheBuiltInTables() {
  for (const std::string& Code : zulcommon::BuiltInLanguages()) {
    if (Code == "en") continue;
    QStringList Findings;
    for (const zulcommon::TTextFinding& Each : zulcommon::CheckTexts(":/zul/strings/" + Code + ".txt", WidthOf)) {
      Findings += QString::number(Each.Line) + ": " + QString::fromStdString(Each.Message);
    }
    QVERIFY2(Findings.isEmpty(), qPrintable(Findings.join(u'\n')));
  }
}

void tst_Languages::shouldTellWholeWhatDoesNotFit() {
  QFETCH(int, Index);
  QVERIFY(zulcommon::UseLanguage("de"));
  const auto German = Dialog(Index);
  German->show();
  QCOMPARE(AnythingWrong(*German), QString());
  zulcommon::ResetStringTable();
  const TOtherTexts Longer(Doubled);
  const auto Long = Dialog(Index);
  Long->show();
  QCOMPARE(AnythingWrong(*Long), QString());
}

void tst_Languages::shouldCutOffWhatTheWaitWindowHasNoRoomFor() {
  const std::string Long = "Retrieving records from a table of which the name is so long that there is no room for it";
  const uZULPickPlsWait::TZULPickPlsWait Wait(nullptr, Long, true);
  QCOMPARE(ToolTipOf(*Wait.lblStatus), QString::fromStdString(Long));
  const QImage Whole = Wait.lblStatus->grab().toImage();
  Wait.lblStatus->setText(static_cast<toolkit::TLabel*>(Wait.lblStatus)->ShownText());
  QCOMPARE(Wait.lblStatus->grab().toImage(), Whole);
  QVERIFY(Wait.lblStatus->text().endsWith(QChar(0x2026)));
  QCOMPARE(ToolTipOf(*Wait.lblStatus), QString());
}

void tst_Languages::shouldShowADialogInGerman() {
  QVERIFY(zulcommon::UseLanguage("de"));
  const auto Pick = uPickCustomer::TfrmPickCustomer::Create(Company_.Connection(), false, "", false, false);
  QCOMPARE(Pick->windowTitle(), QString("Auswahl: Kunde"));
  QCOMPARE(Pick->gbList->title(), QString("Liste: Kunden"));
  QCOMPARE(Pick->bbnCancel->text(), QString("&Abbrechen"));
  QCOMPARE(Pick->ckbInactive->text(), QString("Inaktive"));
  QCOMPARE(Pick->ckbBalance->text(), QString("Salden"));
  QVERIFY(Pick->lblRows->text().endsWith(" Zeilen"));
  const QString Folder = qEnvironmentVariable("ZUL_WRITE_PICTURES");
  for (int Index = 0; !Folder.isEmpty() && Index < Count(); ++Index) {
    const auto Each = Dialog(Index);
    Each->show();
    QVERIFY(Each->grab().save(QStringLiteral("%1/%2-%3.png").arg(Folder).arg(Index).arg(Each->objectName())));
  }
}

void tst_Languages::shouldSayInGermanWhatWasFound() {
  QVERIFY(zulcommon::UseLanguage("de"));
  const auto Pick = uPickCustomer::TfrmPickCustomer::Create(Company_.Connection(), false, "", false, false);
  Pick->show();
  support::TypeFind(*Pick, "no such customer");
  QCOMPARE(Pick->lblRows->text(), QString("0 Zeilen"));
  QCOMPARE(Pick->lblRows->accessibleName(), QString("Nichts gefunden"));
}

void tst_Languages::shouldKeepTheLanguageOfADialogThatIsOpen() {
  const auto Pick = uPickCustomer::TfrmPickCustomer::Create(Company_.Connection(), false, "", false, false);
  QVERIFY(zulcommon::UseLanguage("de"));
  QCOMPARE(Pick->windowTitle(), QString("Select Customer"));
  QCOMPARE(Pick->bbnCancel->text(), QString("&Cancel"));
}

void tst_Languages::shouldHaveATextForOneDialogAlone() {
  QTemporaryFile File;
  QVERIFY(File.open());
  File.write("ckbInactive.Caption\tIdle\nfrmPickCustomer.ckbInactive.Caption\tLost\n");
  File.close();
  zulcommon::LoadStringTable(File.fileName().toStdString());
  QSet<QString> Captions;
  for (int Index = 0; Index < Count(); ++Index) {
    const auto Pick = Dialog(Index);
    const auto* Box = Pick->findChild<QCheckBox*>("ckbInactive");
    if (Box == nullptr) continue;
    QCOMPARE(Box->text(), QString(Pick->objectName() == "frmPickCustomer" ? "Lost" : "Idle"));
    Captions.insert(Box->text());
  }
  QCOMPARE(Captions.size(), 2);
}

void tst_Languages::shouldLeaveACallersCaptionAlone() {
  QVERIFY(zulcommon::UseLanguage("de"));
  const auto Pick = support::SampleDialog("item-preset").Create(Company_.Connection());
  QCOMPARE(Pick->windowTitle(), QString("Auswahl: Artikelvorgabe"));
  Pick->SetPickCaption("Item Preset");
  QCOMPARE(Pick->windowTitle(), QString("Auswahl: Item Preset"));
}

ZUL_TEST_MAIN(tst_Languages, Large)
#include "tst_Languages.moc"
