zul_test(tst_PickPeriods LIBS zultestsupport SQLite::SQLite3)
zul_test(tst_PickMultiReference LIBS zultestsupport SQLite::SQLite3)
zul_test(tst_PickStaff LIBS zultestsupport SQLite::SQLite3)
