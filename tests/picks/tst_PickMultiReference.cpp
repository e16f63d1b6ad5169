#include <QTest>
class tst_PickMultiReference : public QObject {
  Q_OBJECT
};
QTEST_MAIN(tst_PickMultiReference)
#include "tst_PickMultiReference.moc"
