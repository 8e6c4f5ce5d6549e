# Picon packages and the upload plan, and picon download, index and upload against the receiver
# test double (tests/fakebox) with the real curl.
add_library(corvandel_piconarchives STATIC ${CMAKE_CURRENT_LIST_DIR}/PiconArchives.cpp ${CMAKE_CURRENT_LIST_DIR}/PiconArchives.h)
target_include_directories(corvandel_piconarchives PUBLIC ${CMAKE_CURRENT_LIST_DIR})
target_link_libraries(corvandel_piconarchives PUBLIC corvandel_testsupport Qt6::Core PRIVATE LibArchive::LibArchive)

corvandel_add_test(tst_picon_package SOURCES ${CMAKE_CURRENT_LIST_DIR}/PiconPackageTest.cpp
    LIBS corvandel_sync corvandel_piconarchives TIMEOUT 120)
corvandel_add_test(tst_picons SOURCES ${CMAKE_CURRENT_LIST_DIR}/PiconsTest.cpp
    LIBS corvandel_syncfixture corvandel_piconarchives TIMEOUT 300)
