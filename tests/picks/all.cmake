zul_test(tst_PickLayouts SOURCES ../servers/EveryDialog.cpp ../servers/EveryDialog.h LIBS zultestsupport)
zul_test(tst_AllPicks SOURCES ../servers/EveryDialog.cpp ../servers/EveryDialog.h LIBS zultestsupport ${CMAKE_DL_LIBS})
zul_test(tst_Screens SOURCES ../servers/EveryDialog.cpp ../servers/EveryDialog.h LIBS zultestsupport)
zul_test(tst_Titles SOURCES ../servers/EveryDialog.cpp ../servers/EveryDialog.h LIBS zultestsupport)
