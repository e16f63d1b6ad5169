#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <memory>

#include "tests/sample/Database.h"

/// The program zulsample, run as from a command line.
class tst_SampleProgram : public QObject {
  Q_OBJECT

 private slots:
  void init();
  void shouldWriteACompany();
  void shouldWriteALargerOneWhenAsked();
  void shouldTakeASeed();
  void shouldSayHowItIsUsed();
  void shouldRefuseWrongArguments_data();
  void shouldRefuseWrongArguments();
  void shouldKeepAFileThatExists();
  void shouldReplaceAFileWhenAsked();
  void shouldFailWithoutAFolder();
  void shouldKeepACompanyOfThisSchemaWhenAskedToRefresh();
  void shouldReplaceACompanyOfAnotherSchemaWhenAskedToRefresh();
  void shouldRefreshNothingButASampleCompany();
  void shouldTellItsVersion();

 private:
  int Run(const QStringList& Arguments);
  QString File(const QString& Name) const { return Dir_->filePath(Name); }

  std::unique_ptr<QTemporaryDir> Dir_;
  QByteArray Output_;
  QByteArray Errors_;
};

void tst_SampleProgram::init() {
  Dir_ = std::make_unique<QTemporaryDir>();
  QVERIFY(Dir_->isValid());
}

int tst_SampleProgram::Run(const QStringList& Arguments) {
  QProcess Process;
  Process.start(ZULSAMPLE_PROGRAM, Arguments);
  if (!Process.waitForFinished(120'000) || Process.exitStatus() != QProcess::NormalExit) {
    return -1;
  }
  Output_ = Process.readAllStandardOutput();
  Errors_ = Process.readAllStandardError();
  return Process.exitCode();
}

void tst_SampleProgram::shouldWriteACompany() {
  QCOMPARE(Run({File("a.db")}), 0);
  QCOMPARE(Output_ + Errors_, QByteArray());
  const TDatabase Database(File("a.db").toStdString());
  QCOMPARE(Database.Number("SELECT COUNT(*) FROM Cust"), 1000);
  QVERIFY(!QFile::exists(File("a.db.part")));
}

void tst_SampleProgram::shouldWriteALargerOneWhenAsked() {
  QCOMPARE(Run({"--scale", "3", File("a.db")}), 0);
  const TDatabase Database(File("a.db").toStdString());
  QCOMPARE(Database.Number("SELECT COUNT(*) FROM Cust"), 3000);
}

void tst_SampleProgram::shouldTakeASeed() {
  QCOMPARE(Run({File("a.db")}), 0);
  QCOMPARE(Run({File("b.db"), "--seed", "54"}), 0);
  QCOMPARE(Run({File("c.db"), "--seed", "55"}), 0);
  QCOMPARE(Contents(File("a.db")), Contents(File("b.db")));
  QVERIFY(Contents(File("a.db")) != Contents(File("c.db")));
}

void tst_SampleProgram::shouldSayHowItIsUsed() {
  QCOMPARE(Run({"--help"}), 0);
  for (const char* const Word : {"--scale", "--seed", "--overwrite", "FILE"}) {
    QVERIFY2(Output_.contains(Word), Word);
  }
  QCOMPARE(Errors_, QByteArray());
}

void tst_SampleProgram::shouldRefuseWrongArguments_data() {
  QTest::addColumn<QStringList>("Arguments");
  QTest::addColumn<QByteArray>("Message");
  QTest::newRow("no file") << QStringList{} << QByteArray("No file is named.");
  QTest::newRow("two files") << QStringList{"a.db", "b.db"} << QByteArray("Only one file");
  QTest::newRow("an unknown option") << QStringList{"--fast", "a.db"} << QByteArray("no option --fast");
  QTest::newRow("a scale of letters") << QStringList{"--scale", "big", "a.db"} << QByteArray("not 'big'");
  QTest::newRow("a scale and a half") << QStringList{"--scale", "1.5", "a.db"} << QByteArray("not '1.5'");
  QTest::newRow("no scale") << QStringList{"a.db", "--scale"} << QByteArray("--scale takes a number");
  QTest::newRow("a scale of nothing") << QStringList{"--scale", "0", "a.db"} << QByteArray("from 1 to 2000");
  QTest::newRow("a scale beyond measure") << QStringList{"--scale", "2001", "a.db"} << QByteArray("from 1 to 2000");
  QTest::newRow("a negative seed") << QStringList{"--seed", "-1", "a.db"} << QByteArray("not '-1'");
}

void tst_SampleProgram::shouldRefuseWrongArguments() {
  QFETCH(QStringList, Arguments);
  QFETCH(QByteArray, Message);
  for (QString& Argument : Arguments) {
    Argument = Argument.endsWith(".db") ? File(Argument) : Argument;
  }
  QCOMPARE(Run(Arguments), 2);
  QVERIFY2(Errors_.contains(Message), Errors_.constData());
  QCOMPARE(Output_, QByteArray());
  QVERIFY(QDir(Dir_->path()).isEmpty());
}

void tst_SampleProgram::shouldKeepAFileThatExists() {
  QFile Kept(File("a.db"));
  QVERIFY(Kept.open(QIODevice::WriteOnly));
  Kept.write("mine");
  Kept.close();
  QCOMPARE(Run({File("a.db")}), 1);
  QVERIFY2(Errors_.contains("exists already"), Errors_.constData());
  QCOMPARE(Contents(File("a.db")), QByteArray("mine"));
}

void tst_SampleProgram::shouldReplaceAFileWhenAsked() {
  QCOMPARE(Run({"--scale", "2", File("a.db")}), 0);
  QCOMPARE(Run({"--overwrite", File("a.db")}), 0);
  const TDatabase Database(File("a.db").toStdString());
  QCOMPARE(Database.Number("SELECT COUNT(*) FROM Cust"), 1000);
}

void tst_SampleProgram::shouldFailWithoutAFolder() {
  QCOMPARE(Run({File("nowhere/a.db")}), 1);
  QVERIFY2(Errors_.contains("no folder"), Errors_.constData());
  QCOMPARE(Run({Dir_->path()}), 1);
  QVERIFY2(Errors_.contains("is a folder"), Errors_.constData());
}

void tst_SampleProgram::shouldKeepACompanyOfThisSchemaWhenAskedToRefresh() {
  QCOMPARE(Run({"--refresh", "--scale", "2", File("a.db")}), 0);
  const QByteArray Before = Contents(File("a.db"));
  QCOMPARE(Run({"--refresh", File("a.db")}), 0);
  QCOMPARE(Contents(File("a.db")), Before);
}

void tst_SampleProgram::shouldReplaceACompanyOfAnotherSchemaWhenAskedToRefresh() {
  QCOMPARE(Run({File("a.db")}), 0);
  {
    const TDatabase Database(File("a.db").toStdString());
    sample::Execute(Database.Handle(), "DROP TABLE Area; PRAGMA user_version = 1");
  }
  QCOMPARE(Run({"--refresh", File("a.db")}), 0);
  const TDatabase Database(File("a.db").toStdString());
  QVERIFY(Database.Number("SELECT COUNT(*) FROM Area") > 0);
}

void tst_SampleProgram::shouldRefreshNothingButASampleCompany() {
  {
    const sample::TSQLiteHandle Handle = sample::OpenNewFile(File("mine.db").toStdString());
    sample::Execute(Handle.get(), "CREATE TABLE Mine (x)");
  }
  const QByteArray Before = Contents(File("mine.db"));
  QCOMPARE(Run({"--refresh", File("mine.db")}), 1);
  QVERIFY2(Errors_.contains("is no sample company"), Errors_.constData());
  QCOMPARE(Contents(File("mine.db")), Before);
  QCOMPARE(Run({"--refresh", "--db", "postgresql://localhost/x"}), 2);
}

void tst_SampleProgram::shouldTellItsVersion() {
  QCOMPARE(Run({"--version"}), 0);
  QVERIFY2(Output_.startsWith("zulsample ") && Output_.endsWith("\n"), Output_.constData());
}

QTEST_GUILESS_MAIN(tst_SampleProgram)
#include "tst_SampleProgram.moc"
