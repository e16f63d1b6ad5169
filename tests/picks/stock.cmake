zul_test(tst_PickItemsAtLocations LIBS zultestsupport SQLite::SQLite3)
zul_test(tst_PickLocation LIBS zultestsupport SQLite::SQLite3)
zul_test(tst_PickItemCost LIBS zultestsupport SQLite::SQLite3)
zul_test(tst_PickKitAndPreset LIBS zultestsupport SQLite::SQLite3)
