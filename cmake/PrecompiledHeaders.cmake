# What most files include, parsed once for all of them: reading headers is most of what compiling them takes. Files still
# include what they use: the sanitizers' presets build without.
set(vantro_common_headers
  <algorithm> <array> <atomic> <chrono> <cmath> <filesystem> <functional> <map> <memory> <mutex> <optional> <span> <stop_token>
  <string> <utility> <vector>
  <QCoreApplication> <QFile> <QFileInfo> <QFuture> <QHash> <QJsonArray> <QJsonDocument> <QJsonObject> <QLocale> <QPointer>
  <QPromise> <QRegularExpression> <QSet> <QTimer> <QUrl>
  <qcoro/qcorofuture.h> <qcoro/qcorotask.h>)

# vantro_precompiled(NAME HEADERS ... LINK ...): headers for other targets' REUSE_FROM.
function(vantro_precompiled name)
  cmake_parse_arguments(ARG "" "" "HEADERS;LINK" ${ARGN})
  set(source "${CMAKE_BINARY_DIR}/generated/${name}.cpp")
  file(CONFIGURE OUTPUT "${source}" CONTENT "// Carries the precompiled headers.\n")
  add_library(${name} STATIC EXCLUDE_FROM_ALL "${source}")
  target_link_libraries(${name} PRIVATE vantro_settings ${ARG_LINK})
  target_precompile_headers(${name} PRIVATE ${ARG_HEADERS})
endfunction()

vantro_precompiled(vantro_headers HEADERS ${vantro_common_headers} LINK Qt6::Core QCoro6::Core)
if(VANTRO_BUILD_TESTS)
  vantro_precompiled(vantro_test_headers HEADERS ${vantro_common_headers} <QTemporaryDir> <gmock/gmock.h> <gtest/gtest.h>
    LINK Qt6::Core QCoro6::Core GTest::gmock)
endif()
