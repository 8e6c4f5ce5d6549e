# Tests of the settings, box control and log windows on the offscreen platform, with the receiver
# test double where a window talks to the box.
corvandel_add_test(ui_settingsview SOURCES ${CMAKE_CURRENT_LIST_DIR}/SettingsViewTest.cpp LIBS corvandel_ui GUI
    TIMEOUT 120)
corvandel_add_test(ui_boxcontrolview SOURCES ${CMAKE_CURRENT_LIST_DIR}/BoxControlViewTest.cpp LIBS corvandel_ui GUI
    TIMEOUT 120)
corvandel_add_test(ui_logview SOURCES ${CMAKE_CURRENT_LIST_DIR}/LogViewTest.cpp LIBS corvandel_ui GUI TIMEOUT 60)
