#include <QTest>
class tst_PickVendors : public QObject {
  Q_OBJECT
};
QTEST_MAIN(tst_PickVendors)
#include "tst_PickVendors.moc"
