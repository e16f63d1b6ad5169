#include <dlfcn.h>

#include <QTest>
#include <string>

#include "frame/PackageEntry.h"

// Loads the module as a host does that was not linked with it.
class tst_PackageEntry : public QObject {
  Q_OBJECT

  struct TModule {
    TModule() : Handle(dlopen(ZUL_MODULE, RTLD_NOW | RTLD_LOCAL)) {
      if (Handle == nullptr) qFatal("%s", dlerror());
      Initialize = reinterpret_cast<void (*)()>(dlsym(Handle, "Initialize"));
      Finalize = reinterpret_cast<void (*)()>(dlsym(Handle, "Finalize"));
      Table = reinterpret_cast<const TPackageInfoTable* (*)()>(dlsym(Handle, "GetPackageInfoTable"));
      DateFormat = static_cast<std::string*>(dlsym(Handle, "_ZN12uDocPickBase12SQL_DATE_FMTB5cxx11E"));
    }
    ~TModule() { dlclose(Handle); }

    void* Handle;
    void (*Initialize)();
    void (*Finalize)();
    const TPackageInfoTable* (*Table)();
    std::string* DateFormat;
  };

 private Q_SLOTS:
  void shouldTellItsPackagesAndUnitsInTheOrderOfTheirStart() {
    const TModule Module;
    QVERIFY(Module.Table != nullptr);
    const TPackageInfoTable* Table = Module.Table();
    QCOMPARE(std::string(Table->Name), std::string("ZULPickLists"));
    QCOMPARE(std::string(Table->Description), std::string("ZUL Picklists"));
    QVERIFY(Table->RequiredCount >= 1);
    QCOMPARE(std::string(Table->Required[0]), std::string("ZULCommon"));
    QStringList Units;
    for (int Unit = 0; Unit < Table->UnitCount; ++Unit) Units << QString::fromLatin1(Table->Units[Unit]);
    QCOMPARE(QSet(Units.begin(), Units.end()).size(), Units.size());
    // What others use is started before them; tst_NothingForgotten tells which units there must be.
    QCOMPARE(Units.front(), "uZULPickListsUtils");
    const auto Place = [&](const char* Unit) { return Units.indexOf(QLatin1String(Unit)); };
    QVERIFY(Place("uZULPickPlsWait") < Place("uDocPickBase"));
    QVERIFY(Place("uDocPickBase") < Place("uDocPickMultiBase"));
    QVERIFY(Place("uDocPickMultiBase") < Place("uPickListTypes"));
    QVERIFY(Place("uPickListTypes") < Place("uPickAPAgeHist"));
  }

  void shouldStartAndEndItsUnitsOnceForEachLoad() {
    for (int Round = 0; Round < 20; ++Round) {
      const TModule Module;
      QVERIFY(Module.Initialize != nullptr);
      QVERIFY(Module.Finalize != nullptr);
      QCOMPARE(Module.Table()->InitializedCount, 0);
      Module.Initialize();
      Module.Initialize();
      QCOMPARE(Module.Table()->InitializedCount, Module.Table()->UnitCount);
      QVERIFY(Module.DateFormat != nullptr);
      QCOMPARE(*Module.DateFormat, std::string("YYYY-MM-DD"));
      Module.Finalize();
      Module.Finalize();
      QCOMPARE(Module.Table()->InitializedCount, 0);
      QVERIFY2(Module.DateFormat->empty(), "its value is released with its unit");
    }
  }
};

QTEST_MAIN(tst_PackageEntry)
#include "tst_PackageEntry.moc"
