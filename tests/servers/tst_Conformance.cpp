#include <QTest>
#include <algorithm>
#include <set>

#include "servers/Backends.h"
#include "servers/SameLists.h"
#include "support/ModuleSymbols.h"

using support::TBackend;
using support::TBackendKind;
using support::TSampleDialog;

/// Every dialog lists the same whatever database answers.
class tst_Conformance : public support::TSameLists {
  Q_OBJECT

  std::unique_ptr<support::TBackends> All_;
  std::vector<std::unique_ptr<TBackend>> Backends_;

 private slots:
  void initTestCase() {
    All_ = std::make_unique<support::TBackends>();
    for (const TBackendKind Kind : support::EveryBackend) {
      if (!All_->Missing(Kind).isEmpty()) continue;
      Backends_.push_back(All_->Open(Kind));
      Over.push_back({support::NameOf(Kind), Backends_.back()->Connection()});
    }
    QVERIFY(!Backends_.empty());
    QVERIFY(Backends_.front()->Kind() == TBackendKind::SQLite);
  }
  void cleanupTestCase() {
    qInfo("%d lists compared", Comparisons());
    Backends_.clear();
  }

  void shouldCompareEveryBackend_data() {
    QTest::addColumn<TBackendKind>("Kind");
    for (const TBackendKind Kind : support::EveryBackend) QTest::newRow(support::NameOf(Kind)) << Kind;
  }
  void shouldCompareEveryBackend() {
    QFETCH(TBackendKind, Kind);
    const QString Missing = All_->Missing(Kind);
    if (!Missing.isEmpty()) QSKIP(qPrintable(Missing));
    QVERIFY(std::any_of(Backends_.begin(), Backends_.end(), [Kind](const auto& Each) { return Each->Kind() == Kind; }));
  }

  void shouldCompareEveryDialogThatThereIs() {
    std::set<std::string> Compared;
    for (const TSampleDialog& Sample : support::EveryDialog()) {
      Compared.insert(Sample.Create(Backends_.front()->Connection())->metaObject()->className());
    }
    for (const std::string& Dialog : support::ExportedDialogs()) {
      const std::string Missing = Dialog + " is not compared: its function belongs in the catalog (src/catalog).";
      QVERIFY2(Compared.contains(Dialog), Missing.c_str());
    }
  }
};

QTEST_MAIN(tst_Conformance)
#include "tst_Conformance.moc"
