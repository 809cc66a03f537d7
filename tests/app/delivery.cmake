vantro_test(paste_delivery_test SOURCES PasteDeliveryTest.cpp
  LINK vantro_delivery vantro_platform_testing_desktop vantro_test_main)

vantro_test(paste_delivery_desktop_test SOURCES PasteDeliveryDesktopTest.cpp
  LINK vantro_delivery vantro_platform_x11 vantro_test_desktop Qt6::Gui
  WRAPPER ${VANTRO_WITH_DISPLAY} LABELS desktop)
