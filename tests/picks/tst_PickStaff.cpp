#include <QTest>
class tst_PickStaff : public QObject {
  Q_OBJECT
};
QTEST_MAIN(tst_PickStaff)
#include "tst_PickStaff.moc"
