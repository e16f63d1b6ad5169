zul_test(tst_PickReference SOURCES ReferenceDialogs.cpp LIBS zultestsupport SQLite::SQLite3)
zul_test(tst_PickReferenceCalls LIBS zultestsupport)
