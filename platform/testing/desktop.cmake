vantro_room(vantro_platform_testing_desktop
  SOURCES
    FakeDesktopAppearance.h
    FakeDesktopShortcuts.h
    FakeHotKeyManager.cpp FakeHotKeyManager.h
    FakeKeyEventPoster.h
    FakePasteboard.cpp FakePasteboard.h
    FakeWorkspace.cpp FakeWorkspace.h
  LINK vantro_platform vantro_base_testing Qt6::Core)
