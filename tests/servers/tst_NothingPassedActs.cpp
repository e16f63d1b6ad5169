#include <QTest>

#include "ads/Ads.h"
#include "catalog/Catalog.h"
#include "servers/HostileTrial.h"
#include "servers/PickTaker.h"
#include "support/PickDriver.h"
#include "zulcommon/EZULException.h"

using support::TBackend;
using support::TBackendKind;
using support::THostileTrial;

namespace {

/// One text argument of a pick function.
struct TPlace {
  const catalog::TPick* Pick;
  std::string Argument;

  QString Name() const { return QString::fromStdString(Pick->Name + " --" + Argument); }
};

std::vector<TPlace> EveryPlace() {
  std::vector<TPlace> All;
  for (const catalog::TPick& Pick : catalog::FullCatalog().All()) {
    for (const catalog::TArg& Arg : Pick.Args) {
      if (Arg.Kind == catalog::TArgKind::Text) All.push_back({&Pick, Arg.Name});
    }
  }
  return All;
}

// `Turned`: with every Boolean argument and every text beside the one in question other than usual, since some
// arguments count only together.
void Call(TBackend& Backend, const TPlace& Place, const QString& Code, bool Turned) {
  catalog::TArgs Args(Place.Pick->Args);
  for (const catalog::TArg& Arg : Place.Pick->Args) {
    if (Arg.Name == Place.Argument) {
      Args.Set(Arg.Name, Code.toStdString());
    } else if (Turned && Arg.Kind == catalog::TArgKind::Boolean) {
      Args.Set(Arg.Name, Args.Boolean(Arg.Name) ? "false" : "true");
    } else if (Turned && Arg.Kind == catalog::TArgKind::Text) {
      Args.Set(Arg.Name, "C00003");
    }
  }
  try {
    Place.Pick->Call(Backend.Connection(), Args);
  } catch (const ads::EDatabaseError&) {
  } catch (const zulcommon::EZULException&) {
  }
}

const QStringList& HarmlessCodes() {
  static const QStringList Codes{"", "x", "7", "MAIN", "C00003", "V00001", "1000401", "a b", "\\", "%", "-7"};
  return Codes;
}

}  // namespace

/// Whatever is passed to a pick is a value in its query, and does nothing else.
class tst_NothingPassedActs : public QObject {
  Q_OBJECT

  std::unique_ptr<support::THostileBackends> Backends_;

 private slots:
  void initTestCase() { Backends_ = std::make_unique<support::THostileBackends>(); }

  void shouldOnlyCompareWithWhatIsPassed_data() {
    QTest::addColumn<TBackendKind>("Kind");
    for (const TBackendKind Kind : support::EveryBackend) QTest::newRow(support::NameOf(Kind)) << Kind;
  }
  void shouldOnlyCompareWithWhatIsPassed() {
    QFETCH(TBackendKind, Kind);
    const QString Missing = Backends_->Missing(Kind);
    if (!Missing.isEmpty()) QSKIP(qPrintable(Missing));
    const std::unique_ptr<TBackend> Backend = Backends_->Open(Kind);
    const support::TErrorBoxes Answers;
    const support::TPickTaker Taker;
    THostileTrial Trial(*Backends_, *Backend);
    support::TShare Share(40);
    const QStringList Codes = support::HostileCodes(Trial.Names());
    for (const TPlace& Place : EveryPlace()) {
      for (const bool Turned : {false, true}) {
        Trial.Learn([&] {
          for (const QString& Code : HarmlessCodes()) Call(*Backend, Place, Code, Turned);
        });
        for (const QString& Code : Share.Of(Codes)) {
          Trial.Try(Place.Name() + " \"" + Code.left(200) + '"', [&] { Call(*Backend, Place, Code, Turned); });
        }
      }
      Trial.CheckNothingChanged(Place.Name());
      Trial.Forget();
    }
    qInfo("%d texts were passed", Trial.Tries());
    QVERIFY2(Trial.Complaints().isEmpty(), support::Told(Trial.Complaints()).constData());
  }
};

QTEST_MAIN(tst_NothingPassedActs)
#include "tst_NothingPassedActs.moc"
