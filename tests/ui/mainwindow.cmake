# Tests of the main window, the service browser and the space bar, on the offscreen platform,
# with the example list and the receiver test double.
add_library(corvandel_uifixture STATIC ${CMAKE_CURRENT_LIST_DIR}/UiFixture.cpp ${CMAKE_CURRENT_LIST_DIR}/UiFixture.h)
target_link_libraries(corvandel_uifixture PUBLIC corvandel_ui corvandel_testsupport Qt6::Test)

corvandel_add_test(ui_mainwindow SOURCES ${CMAKE_CURRENT_LIST_DIR}/MainWindowTest.cpp LIBS corvandel_uifixture GUI
    TIMEOUT 120)
corvandel_add_test(ui_servicebrowser SOURCES ${CMAKE_CURRENT_LIST_DIR}/ServiceBrowserTest.cpp LIBS corvandel_uifixture
    GUI TIMEOUT 120)
corvandel_add_test(ui_boxcommands SOURCES ${CMAKE_CURRENT_LIST_DIR}/BoxCommandsTest.cpp LIBS corvandel_uifixture
    GUI TIMEOUT 120)
corvandel_add_test(ui_spacezap SOURCES ${CMAKE_CURRENT_LIST_DIR}/SpaceZapTest.cpp LIBS corvandel_uifixture GUI
    TIMEOUT 120)
