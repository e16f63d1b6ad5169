#include <QTest>
class tst_PickEmails : public QObject {
  Q_OBJECT
};
QTEST_MAIN(tst_PickEmails)
#include "tst_PickEmails.moc"
