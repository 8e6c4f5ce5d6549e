# Tests of the store's box operations: download, upload with backup, backups, repair, zapping.
# End to end against the receiver test double (tests/fakebox) with the real curl.
add_library(corvandel_syncfixture STATIC ${CMAKE_CURRENT_LIST_DIR}/SyncFixture.cpp ${CMAKE_CURRENT_LIST_DIR}/SyncFixture.h)
target_link_libraries(corvandel_syncfixture PUBLIC corvandel_sync corvandel_testsupport Qt6::Network)

corvandel_add_test(sync_boxsync SOURCES ${CMAKE_CURRENT_LIST_DIR}/BoxSyncTest.cpp LIBS corvandel_syncfixture TIMEOUT 120)
corvandel_add_test(sync_backups SOURCES ${CMAKE_CURRENT_LIST_DIR}/BackupsTest.cpp LIBS corvandel_syncfixture TIMEOUT 60)
corvandel_add_test(sync_zapper SOURCES ${CMAKE_CURRENT_LIST_DIR}/ZapperTest.cpp LIBS corvandel_syncfixture TIMEOUT 60)
