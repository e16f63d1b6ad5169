zul_test(tst_AllPicks LIBS ZUL::PickLists ${CMAKE_DL_LIBS})
