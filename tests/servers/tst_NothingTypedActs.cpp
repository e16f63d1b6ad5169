#include <QCheckBox>
#include <QLineEdit>
#include <QRadioButton>
#include <QTest>

#include "ads/Ads.h"
#include "pickbase/uDocPickBase.h"
#include "servers/HostileTrial.h"
#include "support/EveryDialog.h"
#include "support/PickDriver.h"
#include "toolkit/EConvertError.h"
#include "zulcommon/EZULException.h"

using support::TBackend;
using support::TBackendKind;
using support::THostileTrial;
using support::TSampleDialog;
using uDocPickBase::TDocPickBase;

namespace {

const QStringList& HarmlessTexts() {
  static const QStringList Texts{"a", "7", "-1.5", "31/12/2025", "%",   "_",     "a%b_",
                                 "*", "?", "[a",   "\\",         "O'N", "1e-400"};
  return Texts;
}

/// A dialog in which somebody types.
class TTypist {
 public:
  TTypist(const TSampleDialog& Sample, THostileTrial& Trial, TBackend& Backend)
      : Name_(QString::fromStdString(Sample.Name)), Trial_(Trial) {
    Trial_.Learn([&] { Dialog_ = Sample.Create(Backend.Connection()); });
    Dialog_->rgFindBy->OnClick = {};  // a choice is made without a query of its own
  }

  int FindBys() const { return Dialog_->rgFindBy->Items().Count(); }

  /// Whether what is looked for by this choice goes into the query as it is typed, without quotes around it.
  bool IsRaw(int FindBy) {
    Trial_.Learn([&] { Type(FindBy, "7777"); });
    return Dialog_->qryList_->SQL()->Text().find("= 7777") != std::string::npos;
  }

  void TryAll(int FindBy, const QStringList& Texts) {
    Trial_.Learn([&] {
      for (const QString& Text : HarmlessTexts()) Type(FindBy, Text);
      Type(FindBy, QString());
      WholeList_ = Rows();
    });
    for (const QString& Text : Texts) {
      const QString What = QStringLiteral("%1, find by %2: \"%3\"").arg(Name_).arg(FindBy).arg(Text.left(200));
      Trial_.Try(What, [&] { Type(FindBy, Text); });
      if (!WholeList_.contains(Rows())) Trial_.Complain(What + " lists what is not in the whole list");
    }
    Type(FindBy, QString());
  }

 private:
  void Type(int FindBy, const QString& Text) {
    Dialog_->rgFindBy->SetItemIndex(FindBy);
    const QSignalBlocker Quiet(Dialog_->edFind);
    Dialog_->edFind->setText(Text);
    try {
      Dialog_->CallSetSQL();
    } catch (const ads::EDatabaseError&) {
    } catch (const toolkit::EConvertError&) {
    } catch (const zulcommon::EZULException&) {
    }
  }

  QSet<QString> Rows() {
    QSet<QString> Result;
    for (int Row = 0; Row < Dialog_->qryList_->RecordCount(); ++Row) {
      const ads::TRowScope Scope(*Dialog_->qryList_, Row);
      QString Text;
      for (const ads::TField* Field : Dialog_->qryList_->Fields()) {
        if (Field->Kind() == ads::TFieldKind::fkData) Text += QString::fromStdString(Field->AsString()) + '|';
      }
      Result << Text;
    }
    return Result;
  }

  QString Name_;
  THostileTrial& Trial_;
  std::unique_ptr<TDocPickBase> Dialog_;
  QSet<QString> WholeList_;
};

}  // namespace

/// Whatever is typed in a find box is looked for, and does nothing else.
class tst_NothingTypedActs : public QObject {
  Q_OBJECT

  std::unique_ptr<support::THostileBackends> Backends_;
  std::map<TBackendKind, std::unique_ptr<TBackend>> Open_;
  support::TShare InTransaction_{4};  // each backend takes other dialogs

  // `Raw`: for the find boxes of which a text goes into the query without quotes around it.
  void TryDialogs(const QStringList& Names, TBackend& Backend, support::TShare Share, support::TShare Raw) {
    const support::TErrorBoxes Answers;
    THostileTrial Trial(*Backends_, Backend);
    const QStringList Texts = support::HostileTexts(Trial.Names());
    for (const TSampleDialog& Sample : support::EveryDialog()) {
      if (!Names.contains(QString::fromStdString(Sample.Name))) continue;
      TTypist Typist(Sample, Trial, Backend);
      for (int FindBy = 0; FindBy < Typist.FindBys(); ++FindBy) {
        Typist.TryAll(FindBy, (Typist.IsRaw(FindBy) ? Raw : Share).Of(Texts));
      }
      Trial.CheckNothingChanged(QString::fromStdString(Sample.Name));
      Trial.Forget();
    }
    qInfo("%d texts were typed", Trial.Tries());
    QVERIFY2(Trial.Complaints().isEmpty(), support::Told(Trial.Complaints()).constData());
  }

  static QStringList EveryName() {
    QStringList Names;
    for (const TSampleDialog& Sample : support::EveryDialog()) Names << QString::fromStdString(Sample.Name);
    return Names;
  }

  void AddBackends() {
    QTest::addColumn<TBackendKind>("Kind");
    for (const TBackendKind Kind : support::EveryBackend) QTest::newRow(support::NameOf(Kind)) << Kind;
  }

 private slots:
  void initTestCase() {
    Backends_ = std::make_unique<support::THostileBackends>();
    for (const TBackendKind Kind : support::EveryBackend) {
      if (Backends_->Missing(Kind).isEmpty()) Open_[Kind] = Backends_->Open(Kind);
    }
  }
  void cleanupTestCase() { Open_.clear(); }

  void shouldOnlyLookForWhatIsTyped_data() { AddBackends(); }
  void shouldOnlyLookForWhatIsTyped() {
    QFETCH(TBackendKind, Kind);
    if (!Open_.contains(Kind)) QSKIP(qPrintable(Backends_->Missing(Kind)));
    // Over ODBC a query takes several times as long; there are enough boxes for all texts to be tried there, too.
    const bool Slow = support::IsByODBC(Kind);
    TryDialogs(EveryName(), *Open_[Kind], support::TShare(Slow ? 120 : 60), support::TShare(Slow ? 4 : 1));
  }

  void shouldLeaveTheHostsTransactionAlone_data() { AddBackends(); }
  void shouldLeaveTheHostsTransactionAlone() {
    QFETCH(TBackendKind, Kind);
    if (!Open_.contains(Kind)) QSKIP(qPrintable(Backends_->Missing(Kind)));
    TBackend& Backend = *Open_[Kind];
    QVERIFY(Backend.Database().transaction());
    Backend.Execute("INSERT INTO area (zip) VALUES ('hosts')");
    TryDialogs(InTransaction_.Of(EveryName()), Backend, support::TShare(30), support::TShare(2));
    Backend.Execute("DELETE FROM area WHERE zip = 'hosts'");
    QVERIFY(Backend.Database().commit());
  }
};

QTEST_MAIN(tst_NothingTypedActs)
#include "tst_NothingTypedActs.moc"
