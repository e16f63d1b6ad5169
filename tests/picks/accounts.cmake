zul_test(tst_PickBatches LIBS zultestsupport SQLite::SQLite3)
