zul_test(tst_PickCustomer LIBS zultestsupport SQLite::SQLite3)
zul_test(tst_PickVendors LIBS zultestsupport SQLite::SQLite3)
zul_test(tst_PickEmails LIBS zultestsupport SQLite::SQLite3)
