# Shared compiler settings for every Zantor target.
add_library(zantor_warnings INTERFACE)
if(MSVC)
    target_compile_options(zantor_warnings INTERFACE /W4 $<$<BOOL:${ZANTOR_WERROR}>:/WX>)
else()
    target_compile_options(zantor_warnings INTERFACE -Wall -Wextra -Wpedantic
                                                     $<$<BOOL:${ZANTOR_WERROR}>:-Werror>)
endif()

if(ZANTOR_SANITIZE)
    if(MSVC)
        message(FATAL_ERROR "ZANTOR_SANITIZE is supported with GCC and Clang only")
    endif()
    set(_zantor_san -fsanitize=address,undefined -fno-sanitize-recover=undefined
                    -fno-omit-frame-pointer)
    target_compile_options(zantor_warnings INTERFACE ${_zantor_san})
    target_link_options(zantor_warnings INTERFACE ${_zantor_san})
endif()

# The fuzz build instruments everything it compiles; the fuzz targets add libFuzzer's main.
if(ZANTOR_FUZZ)
    set(_zantor_fuzz -fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=undefined
                     -fno-omit-frame-pointer)
    target_compile_options(zantor_warnings INTERFACE ${_zantor_fuzz})
    target_link_options(zantor_warnings INTERFACE -fsanitize=address,undefined)
endif()

# zantor_subsystem(NAME DIR [DEPS ...]): a static library of all sources in DIR.
function(zantor_subsystem name dir)
    file(GLOB_RECURSE _sources CONFIGURE_DEPENDS ${dir}/*.cpp)
    if(NOT _sources)
        add_library(${name} INTERFACE)
        target_include_directories(${name} INTERFACE ${PROJECT_SOURCE_DIR}/src/core)
        target_link_libraries(${name} INTERFACE ${ARGN})
        return()
    endif()
    add_library(${name} STATIC ${_sources})
    target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR}/src/core)
    target_link_libraries(${name} PUBLIC ${ARGN} PRIVATE zantor_warnings)
endfunction()

# zantor_tests(NAME DIR LIBS...): one GoogleTest executable from the test sources in DIR.
function(zantor_tests name dir)
    file(GLOB_RECURSE _sources CONFIGURE_DEPENDS ${dir}/*.cpp)
    if(NOT _sources)
        return()
    endif()
    add_executable(${name} ${_sources})
    target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
    target_link_libraries(${name} PRIVATE ${ARGN} zantor_test_support GTest::gtest GTest::gtest_main
                                          zantor_warnings)
    # The fixture folders reach the tests through compile definitions of zantor_test_support
    # (a semicolon list in ENVIRONMENT does not survive gtest_discover_tests).
    gtest_discover_tests(${name} DISCOVERY_TIMEOUT 60 PROPERTIES ENVIRONMENT QT_QPA_PLATFORM=offscreen)
endfunction()
