#include <QTest>
class tst_PickCustomer : public QObject {
  Q_OBJECT
};
QTEST_MAIN(tst_PickCustomer)
#include "tst_PickCustomer.moc"
