// The pick functions as hosts link to them: each under its name, with its parameters, exported by the module. And what
// holds for each of the dialogs.
#include <cxxabi.h>
#include <dlfcn.h>

#include <QAccessible>
#include <QCheckBox>
#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <cstdlib>
#include <memory>
#include <set>

#include "picks/accounts/uPickEftBatch.h"
#include "picks/accounts/uPickPostedBatch.h"
#include "picks/accounts/uPickPostedChequeBatch.h"
#include "picks/orders/uPickARInvoice.h"
#include "picks/orders/uPickBooking.h"
#include "picks/orders/uPickMultiOEDocs.h"
#include "picks/orders/uPickOEDoc.h"
#include "picks/orders/uPickOEJob.h"
#include "picks/orders/uPickOEMemberOfGroup.h"
#include "picks/parties/uPickCustContactEmails.h"
#include "picks/parties/uPickCustomer.h"
#include "picks/parties/uPickVendors.h"
#include "picks/parties/uPickVendorsEmails.h"
#include "picks/purchasing/uPickAnyPO.h"
#include "picks/purchasing/uPickMultiPOs.h"
#include "picks/purchasing/uPickPOExtras.h"
#include "picks/purchasing/uPickPurchaseOrders.h"
#include "picks/reference/uPickAPAgeHist.h"
#include "picks/reference/uPickCity.h"
#include "picks/reference/uPickCostCenter.h"
#include "picks/reference/uPickCutLocations.h"
#include "picks/reference/uPickDepartmentMulti.h"
#include "picks/reference/uPickEntity.h"
#include "picks/reference/uPickFinance.h"
#include "picks/reference/uPickGSTRate.h"
#include "picks/reference/uPickItemCategory.h"
#include "picks/reference/uPickItemClass.h"
#include "picks/reference/uPickItemFactorPreset.h"
#include "picks/reference/uPickItemHistPeriod.h"
#include "picks/reference/uPickItemPreset.h"
#include "picks/reference/uPickJob.h"
#include "picks/reference/uPickMultiDepartments.h"
#include "picks/reference/uPickMultiUsers.h"
#include "picks/reference/uPickPeriods.h"
#include "picks/reference/uPickSalesPerson.h"
#include "picks/reference/uPickState.h"
#include "picks/reference/uPickSuburb.h"
#include "picks/reference/uPickTerms.h"
#include "picks/reference/uPickUsedPeriodYear.h"
#include "picks/reference/uPickUserName.h"
#include "picks/stock/uPickItemAndLocation.h"
#include "picks/stock/uPickItemCost.h"
#include "picks/stock/uPickItemLocation.h"
#include "picks/stock/uPickItemPresetDetail.h"
#include "picks/stock/uPickKitDetail.h"
#include "picks/stock/uPickLocation.h"
#include "support/EveryDialog.h"
#include "support/ModuleSymbols.h"
#include "support/PickDriver.h"
#include "support/TestCompany.h"

using ads::TAdsConnection;
using toolkit::TStringList;
using uPickListTypes::TOEDoc;
using uPickListTypes::TPOStates;
using uZULPickLists::TIntegerList;
using zulcommon::TDocType;
using zulcommon::TDocTypes;

namespace {

struct TExport {
  std::string Name;
  void* Address;
};

// Only a function of exactly this type compiles; of several with the same name it is chosen by it.
template <typename TFunction>
TExport Exported(const char* Name, TFunction* Function) {
  return {Name, reinterpret_cast<void*>(Function)};
}

const std::vector<TExport>& Exports() {
  static const std::vector<TExport> All{
      Exported<bool(TAdsConnection*, std::string&)>("uPickCity::CallPickCity", uPickCity::CallPickCity),
      Exported<bool(TAdsConnection*, std::string&)>("uPickCostCenter::CallPickCostCenter",
                                                    uPickCostCenter::CallPickCostCenter),
      Exported<bool(TAdsConnection*, std::string&)>("uPickCutLocations::CallPickCutLoc",
                                                    uPickCutLocations::CallPickCutLoc),
      Exported<bool(TAdsConnection*, std::string&)>("uPickEntity::CallPickEntity", uPickEntity::CallPickEntity),
      Exported<std::string(TAdsConnection*)>("uPickEntity::CallPickEntity", uPickEntity::CallPickEntity),
      Exported<bool(TAdsConnection*, std::int32_t&)>("uPickFinance::CallPickFinanceRate",
                                                     uPickFinance::CallPickFinanceRate),
      Exported<bool(TAdsConnection*, std::string&)>("uPickGSTRate::CallPickGSTRate", uPickGSTRate::CallPickGSTRate),
      Exported<bool(TAdsConnection*, std::string&)>("uPickItemCategory::CallPickItemCat",
                                                    uPickItemCategory::CallPickItemCat),
      Exported<bool(TAdsConnection*, std::string&)>("uPickItemClass::CallPickItemClass",
                                                    uPickItemClass::CallPickItemClass),
      Exported<bool(TAdsConnection*, std::int32_t&)>("uPickItemFactorPreset::CallPickItemFactor",
                                                     uPickItemFactorPreset::CallPickItemFactor),
      Exported<bool(TAdsConnection*, std::int32_t&)>("uPickItemPreset::CallPickItemPreset",
                                                     uPickItemPreset::CallPickItemPreset),
      Exported<bool(TAdsConnection*, std::string&)>("uPickJob::CallPickJobNo", uPickJob::CallPickJobNo),
      Exported<bool(TAdsConnection*, std::string&)>("uPickState::CallPickState", uPickState::CallPickState),
      Exported<bool(TAdsConnection*, std::string&)>("uPickSuburb::CallPickSuburb", uPickSuburb::CallPickSuburb),
      Exported<bool(TAdsConnection*, std::string&)>("uPickTerms::CallPickTerms", uPickTerms::CallPickTerms),
      Exported<bool(TAdsConnection*, std::string&)>("uPickUsedPeriodYear::CallPickUsedPeriodYear",
                                                    uPickUsedPeriodYear::CallPickUsedPeriodYear),
      Exported<bool(TAdsConnection*, bool, std::string&)>("uPickPeriods::CallPickPeriod", uPickPeriods::CallPickPeriod),
      Exported<bool(TAdsConnection*, std::string&)>("uPickAPAgeHist::CallAPAgeHistPeriodPick",
                                                    uPickAPAgeHist::CallAPAgeHistPeriodPick),
      Exported<bool(TAdsConnection*, std::string&)>("uPickItemHistPeriod::CallPickItemHistPeriod",
                                                    uPickItemHistPeriod::CallPickItemHistPeriod),
      Exported<bool(TStringList*, TAdsConnection*)>("uPickDepartmentMulti::CallDepartmentsPick",
                                                    uPickDepartmentMulti::CallDepartmentsPick),
      Exported<bool(std::string&, TAdsConnection*)>("uPickDepartmentMulti::CallDepartmentsPick",
                                                    uPickDepartmentMulti::CallDepartmentsPick),
      Exported<bool(TStringList*, TAdsConnection*)>("uPickMultiDepartments::CallMultiDepartmentsPick",
                                                    uPickMultiDepartments::CallMultiDepartmentsPick),
      Exported<bool(TStringList*, TAdsConnection*)>("uPickMultiUsers::CallMultiUsersPick",
                                                    uPickMultiUsers::CallMultiUsersPick),
      Exported<bool(TAdsConnection*, std::string&, const std::string&)>("uPickSalesPerson::CallPickSalesPerson",
                                                                        uPickSalesPerson::CallPickSalesPerson),
      Exported<bool(TAdsConnection*, std::string&, const std::string&)>("uPickUserName::CallPickUser",
                                                                        uPickUserName::CallPickUser),
      Exported<bool(TAdsConnection*, std::string&, bool, const std::string&, bool, bool)>(
          "uPickCustomer::CallCustomerPick", uPickCustomer::CallCustomerPick),
      Exported<bool(TAdsConnection*, std::string&, uPickVendors::TVendorWhat)>("uPickVendors::CallVendorPick",
                                                                               uPickVendors::CallVendorPick),
      Exported<bool(TAdsConnection*, std::string&)>("uPickCustContactEmails::CallPickCustomerEmailAddress",
                                                    uPickCustContactEmails::CallPickCustomerEmailAddress),
      Exported<bool(TAdsConnection*, std::string&)>("uPickCustContactEmails::CallPickProspectEmailAddress",
                                                    uPickCustContactEmails::CallPickProspectEmailAddress),
      Exported<bool(TAdsConnection*, std::string&)>("uPickVendorsEmails::CallVendorEmailsPick",
                                                    uPickVendorsEmails::CallVendorEmailsPick),
      Exported<bool(TAdsConnection*, const std::string&, const TDocTypes&, const uPickOEDoc::TOEDocOptions&,
                    const uPickOEDoc::TOEDocOptions&, std::string&, TDocType&)>("uPickOEDoc::CallPickOEDoc",
                                                                                uPickOEDoc::CallPickOEDoc),
      Exported<bool(TAdsConnection*, const TDocTypes&, const uPickOEDoc::TOEDocOptions&,
                    const uPickOEDoc::TOEDocOptions&, std::string&, TDocType&)>("uPickOEDoc::CallPickOEDoc",
                                                                                uPickOEDoc::CallPickOEDoc),
      Exported<bool(TAdsConnection*, const std::string&, TDocType, const uPickMultiOEDocs::TOEDocOptions&,
                    const uPickMultiOEDocs::TOEDocOptions&, TStringList*)>("uPickMultiOEDocs::CallPickMultiOEDocs",
                                                                           uPickMultiOEDocs::CallPickMultiOEDocs),
      Exported<bool(TAdsConnection*, TDocType, const uPickMultiOEDocs::TOEDocOptions&,
                    const uPickMultiOEDocs::TOEDocOptions&, TStringList*)>("uPickMultiOEDocs::CallPickMultiOEDocs",
                                                                           uPickMultiOEDocs::CallPickMultiOEDocs),
      Exported<bool(TAdsConnection*, std::string&)>("uPickOEJob::CallPickOEJob", uPickOEJob::CallPickOEJob),
      Exported<bool(TAdsConnection*, const std::string&, const std::string&, std::string&)>(
          "uPickOEMemberOfGroup::CallPickOEMemberOfGroup", uPickOEMemberOfGroup::CallPickOEMemberOfGroup),
      Exported<bool(TAdsConnection*, const uPickARInvoice::TARInvoiceOps&, const std::string&, const std::string&,
                    std::string&, std::string&)>("uPickARInvoice::CallARInvoicePick",
                                                 uPickARInvoice::CallARInvoicePick),
      Exported<bool(TAdsConnection*, const uPickBooking::TBookingPickOps&, const std::string&, std::string&)>(
          "uPickBooking::CallPickBooking", uPickBooking::CallPickBooking),
      Exported<bool(TAdsConnection*, TPOStates, TPOStates, std::string&, const std::string&)>("uPickAnyPO::CallPickPO",
                                                                                              uPickAnyPO::CallPickPO),
      Exported<std::string(TAdsConnection*, TPOStates, TPOStates, const std::string&, const std::string&,
                           const std::string&)>("uPickPurchaseOrders::CallPickCustPO",
                                                uPickPurchaseOrders::CallPickCustPO),
      Exported<std::string(TAdsConnection*, TPOStates, TPOStates)>("uPickPurchaseOrders::CallPickStockPO",
                                                                   uPickPurchaseOrders::CallPickStockPO),
      Exported<std::string(TAdsConnection*, TPOStates, TPOStates)>("uPickPurchaseOrders::CallPickCust",
                                                                   uPickPurchaseOrders::CallPickCust),
      Exported<TOEDoc(TAdsConnection*, TPOStates, TPOStates, const std::string&)>(
          "uPickPurchaseOrders::CallOEDocWithPOPick", uPickPurchaseOrders::CallOEDocWithPOPick),
      Exported<std::string(TAdsConnection*, TPOStates, TPOStates)>("uPickPurchaseOrders::CallPickMultiPO",
                                                                   uPickPurchaseOrders::CallPickMultiPO),
      Exported<bool(TAdsConnection*, TPOStates, TPOStates, TStringList*&)>("uPickMultiPOs::CallPickMutliPO",
                                                                           uPickMultiPOs::CallPickMutliPO),
      Exported<bool(TAdsConnection*, const std::string&, TIntegerList*)>("uPickPOExtras::CallPickPOExtras",
                                                                         uPickPOExtras::CallPickPOExtras),
      Exported<bool(const std::string&, TAdsConnection*, std::string&, std::int32_t&)>(
          "uPickItemAndLocation::CallPickItemAndLocation", uPickItemAndLocation::CallPickItemAndLocation),
      Exported<bool(const std::string&, TAdsConnection*, std::int32_t&, bool)>("uPickItemLocation::CallPickLocation",
                                                                               uPickItemLocation::CallPickLocation),
      Exported<bool(TAdsConnection*, std::int32_t&, const std::string&)>("uPickLocation::CallPickLocation",
                                                                         uPickLocation::CallPickLocation),
      Exported<bool(TAdsConnection*, const std::string&, std::int32_t&)>("uPickItemCost::CallPickItemCost",
                                                                         uPickItemCost::CallPickItemCost),
      Exported<bool(TAdsConnection*, std::int32_t, std::string&)>("uPickItemPresetDetail::CallPickPresetDetail",
                                                                  uPickItemPresetDetail::CallPickPresetDetail),
      Exported<bool(TAdsConnection*, std::int32_t, std::string&)>("uPickKitDetail::CallPickKitDetail",
                                                                  uPickKitDetail::CallPickKitDetail),
      Exported<bool(TAdsConnection*, std::string&)>("uPickEftBatch::CallEFTBatchPick", uPickEftBatch::CallEFTBatchPick),
      Exported<bool(TAdsConnection*, std::string&)>("uPickPostedBatch::CallPickPostedBatch",
                                                    uPickPostedBatch::CallPickPostedBatch),
      Exported<bool(TAdsConnection*, std::string&)>("uPickPostedChequeBatch::CallPickPostedChequeBatch",
                                                    uPickPostedChequeBatch::CallPickPostedChequeBatch),
  };
  return All;
}

std::string Demangled(const char* Symbol) {
  int Status = 0;
  const std::unique_ptr<char, decltype(&std::free)> Name(abi::__cxa_demangle(Symbol, nullptr, nullptr, &Status),
                                                         &std::free);
  return Name != nullptr ? Name.get() : std::string();
}

Dl_info SymbolOf(const TExport& Export) {
  Dl_info Info{};
  return dladdr(Export.Address, &Info) != 0 ? Info : Dl_info{};
}

// Check boxes besides the descending one that are shown, from the top to the bottom.
QStringList OwnBoxes(const uDocPickBase::TDocPickBase& Dialog) {
  QList<QCheckBox*> Boxes = Dialog.pnlForm->findChildren<QCheckBox*>();
  Boxes.removeIf([&](const QCheckBox* Box) { return Box == Dialog.ckbDesc || !Box->isVisible(); });
  std::sort(Boxes.begin(), Boxes.end(), [](const QCheckBox* A, const QCheckBox* B) { return A->y() < B->y(); });
  QStringList Names;
  for (const QCheckBox* Box : Boxes) Names.append(Box->objectName());
  return Names;
}

// What the Tab key leads to, from the list round to it again.
QStringList TabStops(const uDocPickBase::TDocPickBase& Dialog) {
  QStringList Names;
  Dialog.dbgAvail->setFocus();
  do {
    Names.append(Dialog.focusWidget()->objectName());
    QTest::keyClick(Dialog.focusWidget(), Qt::Key_Tab);
  } while (Dialog.focusWidget() != Dialog.dbgAvail && Names.size() < 20);
  return Names;
}

}  // namespace

class tst_AllPicks : public QObject {
  Q_OBJECT

  static void AddDialogs();

 private Q_SLOTS:
  void shouldBeAllOfThem();
  void shouldBeExported_data();
  void shouldBeExported();
  void shouldExportTheEntries();
  void shouldEachHaveANameOfItsOwn();
  void shouldGoToEachControlByALetterOfItsOwn_data() { AddDialogs(); }
  void shouldGoToEachControlByALetterOfItsOwn();
  void shouldSpellNoMnemonicForAssistivePrograms_data() { AddDialogs(); }
  void shouldSpellNoMnemonicForAssistivePrograms();
  void shouldTellAssistiveProgramsWhatALetterMeans_data() { AddDialogs(); }
  void shouldTellAssistiveProgramsWhatALetterMeans();
  void shouldTellWhichColumnIsSearched_data() { AddDialogs(); }
  void shouldTellWhichColumnIsSearched();
  void shouldBeWalkedByTab_data() { AddDialogs(); }
  void shouldBeWalkedByTab();
};

void tst_AllPicks::shouldBeAllOfThem() {
  std::set<std::string> Told;
  for (const TExport& Export : Exports()) {
    QVERIFY2(Told.insert(SymbolOf(Export).dli_sname).second, (Export.Name + " is told twice.").c_str());
  }
  for (const support::TExportedFunction& Function : support::ExportedPickFunctions()) {
    const std::string Missing = Function.Signature + " is not among the Exports() of tests/picks/tst_AllPicks.cpp.";
    QVERIFY2(Told.contains(Function.Symbol), Missing.c_str());
  }
}

void tst_AllPicks::shouldBeExported_data() {
  QTest::addColumn<int>("Index");
  for (std::size_t Index = 0; Index < Exports().size(); ++Index) {
    QTest::addRow("%zu %s", Index, Exports()[Index].Name.c_str()) << static_cast<int>(Index);
  }
}

// What is found under the function's own symbol in the module is the function.
void tst_AllPicks::shouldBeExported() {
  QFETCH(int, Index);
  const TExport& Export = Exports()[static_cast<std::size_t>(Index)];
  const Dl_info Symbol = SymbolOf(Export);
  QVERIFY2(Symbol.dli_sname != nullptr, "There is no symbol for it.");
  QVERIFY2(QString(Symbol.dli_fname).contains("libZULPickLists.so"), Symbol.dli_fname);
  std::string Name = Demangled(Symbol.dli_sname);
  Name = Name.substr(0, Name.find_first_of("[("));
  QCOMPARE(Name, Export.Name);
  void* Module = dlopen(Symbol.dli_fname, RTLD_NOW | RTLD_NOLOAD);
  QVERIFY(Module != nullptr);
  QCOMPARE(dlsym(Module, Symbol.dli_sname), Export.Address);
  dlclose(Module);
}

void tst_AllPicks::shouldExportTheEntries() {
  void* Module = dlopen(SymbolOf(Exports()[0]).dli_fname, RTLD_NOW | RTLD_NOLOAD);
  QVERIFY(Module != nullptr);
  for (const char* Entry : {"Initialize", "Finalize", "GetPackageInfoTable"}) {
    QVERIFY2(dlsym(Module, Entry) != nullptr, Entry);
  }
  QVERIFY(dlsym(Module, "CallPickCity") == nullptr);
  dlclose(Module);
}

// A style sheet and a test tool tell the dialogs apart by class and by object name.
void tst_AllPicks::shouldEachHaveANameOfItsOwn() {
  support::TTestCompany Company;
  QMap<QString, QString> Names;  // by class
  for (const support::TSampleDialog& Sample : support::EveryDialog()) {
    const auto Dialog = Sample.Create(Company.Connection());
    const auto& Object = *Dialog;
    QCOMPARE(QString(Dialog->metaObject()->className()), QString::fromStdString(Demangled(typeid(Object).name())));
    const QString Class = Dialog->metaObject()->className();
    QVERIFY(!Dialog->windowIcon().isNull());
    QCOMPARE("T" + Dialog->objectName(), Class.mid(Class.lastIndexOf(u':') + 1));
    QVERIFY(!Names.contains(Class) || Names[Class] == Dialog->objectName());
    Names[Class] = Dialog->objectName();
  }
  QCOMPARE(QSet(Names.begin(), Names.end()).size(), Names.size());
}

void tst_AllPicks::AddDialogs() {
  QTest::addColumn<int>("Index");
  int Index = 0;
  for (const support::TSampleDialog& Sample : support::EveryDialog()) QTest::newRow(Sample.Name.c_str()) << Index++;
}

void tst_AllPicks::shouldGoToEachControlByALetterOfItsOwn() {
  QFETCH(int, Index);
  support::TTestCompany Company;
  const auto Dialog = support::EveryDialog()[static_cast<std::size_t>(Index)].Create(Company.Connection());
  Dialog->show();
  QVERIFY(QTest::qWaitForWindowActive(Dialog.get()));
  QMap<QString, QString> Controls;  // by mnemonic
  for (const QWidget* Widget : Dialog->findChildren<QWidget*>()) {
    if (!Widget->isVisible()) continue;
    const auto* Button = qobject_cast<const QAbstractButton*>(Widget);
    const auto* Group = qobject_cast<const QGroupBox*>(Widget);
    const QString Caption = Button != nullptr ? Button->text() : Group != nullptr ? Group->title() : QString();
    const QString Mnemonic = QKeySequence::mnemonic(Caption).toString();
    if (Mnemonic.isEmpty()) continue;
    QVERIFY2(!Controls.contains(Mnemonic), qPrintable(Widget->objectName() + " and " + Controls[Mnemonic]));
    Controls[Mnemonic] = Widget->objectName();
  }
  QStringList Base{"bbnOK", "bbnCancel"};
  if (Dialog->gbFind->isVisible())
    Base << "gbFind"
         << "bbnFInd"
         << "rgFindBy";
  if (Dialog->rgOrderBy->isVisible())
    Base << "rgOrderBy"
         << "ckbDesc";
  Base.sort();
  QStringList WithLetters = Controls.values();
  WithLetters.sort();
  QCOMPARE(WithLetters, Base);
  if (!Dialog->gbFind->isVisible()) return;

  Dialog->dbgAvail->setFocus();
  QTest::keyClick(Dialog->dbgAvail, Qt::Key_I, Qt::AltModifier);
  QCOMPARE(QApplication::focusWidget(), Dialog->edFind);
  QTest::keyClick(Dialog->edFind, Qt::Key_B, Qt::AltModifier);
  QCOMPARE(QApplication::focusWidget(), Dialog->rgFindBy->Button(Dialog->rgFindBy->ItemIndex()));
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_R, Qt::AltModifier);
  QCOMPARE(QApplication::focusWidget(), Dialog->rgOrderBy->Button(Dialog->rgOrderBy->ItemIndex()));
}

void tst_AllPicks::shouldSpellNoMnemonicForAssistivePrograms() {
  QFETCH(int, Index);
  support::TTestCompany Company;
  const auto Dialog = support::EveryDialog()[static_cast<std::size_t>(Index)].Create(Company.Connection());
  Dialog->show();
  for (QWidget* Widget : Dialog->findChildren<QWidget*>()) {
    QAccessibleInterface* Accessible = QAccessible::queryAccessibleInterface(Widget);
    if (Accessible == nullptr || !Widget->isVisible()) continue;
    QVERIFY2(!Accessible->text(QAccessible::Name).contains(u'&'), qPrintable(Widget->objectName()));
  }
}

void tst_AllPicks::shouldTellAssistiveProgramsWhatALetterMeans() {
  QFETCH(int, Index);
  support::TTestCompany Company;
  const auto Dialog = support::EveryDialog()[static_cast<std::size_t>(Index)].Create(Company.Connection());
  for (const toolkit::TColumn* Column : Dialog->dbgAvail->Columns()) {
    const bool IsLetter = Column->Title().size() == 1 && Column->Title() != " ";
    QVERIFY2(!IsLetter || Column->AccessibleTitle().size() > 3, Column->Field()->FieldName().c_str());
  }
}

void tst_AllPicks::shouldTellWhichColumnIsSearched() {
  QFETCH(int, Index);
  support::TTestCompany Company;
  const auto Dialog = support::EveryDialog()[static_cast<std::size_t>(Index)].Create(Company.Connection());
  const QAccessibleInterface* FindBox = QAccessible::queryAccessibleInterface(Dialog->edFind);
  for (int Item = 0; Item < Dialog->rgFindBy->Items().Count(); ++Item) {
    Dialog->rgFindBy->SetItemIndex(Item);
    const QString Column = QString::fromStdString(Dialog->rgFindBy->Items()[Item]);
    QCOMPARE(Dialog->edFind->placeholderText(), Column);
    QCOMPARE(FindBox->text(QAccessible::Description), "Find By: " + Column);
  }
}

// As it reads from the top to the bottom: the list, the find box, the choices, the boxes, the buttons.
void tst_AllPicks::shouldBeWalkedByTab() {
  QFETCH(int, Index);
  support::TTestCompany Company;
  const auto Dialog = support::EveryDialog()[static_cast<std::size_t>(Index)].Create(Company.Connection());
  support::DrivePick([&] { return Dialog->ShowPick(); },
                     [&](uDocPickBase::TDocPickBase&) {
                       QStringList Expected{"dbgAvail"};
                       if (Dialog->edFind->isVisible()) Expected.append("edFind");
                       for (const toolkit::TRadioGroup* Group : {Dialog->rgFindBy, Dialog->rgOrderBy}) {
                         if (Group->isVisible()) Expected.append(Group->Button(Group->ItemIndex())->objectName());
                       }
                       if (Dialog->ckbDesc->isVisible()) Expected.append("ckbDesc");
                       Expected.append(OwnBoxes(*Dialog));
                       if (Dialog->bbnOK->isEnabled()) Expected.append("bbnOK");
                       Expected.append("bbnCancel");
                       QCOMPARE(TabStops(*Dialog), Expected);
                     });
}

QTEST_MAIN(tst_AllPicks)
#include "tst_AllPicks.moc"
