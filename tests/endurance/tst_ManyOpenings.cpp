#include <QFile>
#include <QTest>

#include "catalog/Catalog.h"
#include "support/PickDriver.h"
#include "support/TestCompany.h"

namespace {

// What the process holds in memory, in KiB.
qint64 ResidentKiB() {
  QFile Status(QStringLiteral("/proc/self/status"));
  if (!Status.open(QIODevice::ReadOnly)) return 0;
  const QByteArray Text = Status.readAll();
  const qsizetype At = Text.indexOf("VmRSS:");
  return Text.mid(At + 6, Text.indexOf("kB", At) - At - 6).trimmed().toLongLong();
}

}  // namespace

class tst_ManyOpenings : public QObject {
  Q_OBJECT

  support::TTestCompany Company;

  void OpenAndCancel(const catalog::TPick& Pick) {
    const catalog::TArgs Args(Pick.Args);
    const bool Chosen = support::DrivePick([&] { return Pick.Call(Company.Connection(), Args).Chosen; },
                                           [](uDocPickBase::TDocPickBase& Dialog) { support::ClickCancel(Dialog); });
    QVERIFY(!Chosen);
  }

 private Q_SLOTS:
  void shouldNotGrowWhenADialogIsOpenedAThousandTimes() {
    const catalog::TPick* Pick = catalog::FullCatalog().Find("cost-center");
    QVERIFY(Pick != nullptr);
    for (int Time = 0; Time < 200; ++Time) OpenAndCancel(*Pick);
    const qint64 Before = ResidentKiB();
    QVERIFY(Before > 0);
    for (int Time = 0; Time < 1000; ++Time) OpenAndCancel(*Pick);
    const qint64 Grown = ResidentKiB() - Before;
    // The sanitizers keep freed memory back for a while on purpose.
#if !defined(__SANITIZE_ADDRESS__)
    QVERIFY2(Grown < 2048, qPrintable(QString("grown by %1 KiB").arg(Grown)));
#else
    Q_UNUSED(Grown)
#endif
  }

  void shouldLeaveNoWindowBehind() {
    const catalog::TPick* Pick = catalog::FullCatalog().Find("city");
    QVERIFY(Pick != nullptr);
    OpenAndCancel(*Pick);
    QCOMPARE(QApplication::topLevelWidgets().size(), 0);
  }
};

QTEST_MAIN(tst_ManyOpenings)
#include "tst_ManyOpenings.moc"
