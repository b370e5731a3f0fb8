# Helpers shared by the CMake files of the tree.

# orrerion_sources(<var> <dir>...): every .cpp and .h below the given folders, so a new file is
# never forgotten in a hand-kept list.
function(orrerion_sources var)
    set(files)
    foreach(dir IN LISTS ARGN)
        file(GLOB_RECURSE found CONFIGURE_DEPENDS ${dir}/*.cpp ${dir}/*.h)
        list(APPEND files ${found})
    endforeach()
    set(${var} ${files} PARENT_SCOPE)
endfunction()

# orrerion_tests(<dir> <kind> LIBS <libs>...): one test program per .cpp file of the folder
# (kind gtest or qttest), each registered with CTest under its file name and a time limit.
function(orrerion_tests dir kind)
    cmake_parse_arguments(ARG "" "" "LIBS" ${ARGN})
    file(GLOB sources CONFIGURE_DEPENDS ${dir}/*.cpp)
    file(GLOB helpers CONFIGURE_DEPENDS ${dir}/support/*.cpp ${dir}/support/*.h)
    file(RELATIVE_PATH rel ${CMAKE_SOURCE_DIR}/tests ${dir})
    string(REPLACE "/" "_" prefix "${rel}")
    foreach(src IN LISTS sources)
        get_filename_component(name ${src} NAME_WE)
        set(target test_${prefix}_${name})
        add_executable(${target} ${src} ${helpers})
        target_include_directories(${target} PRIVATE ${CMAKE_SOURCE_DIR}/tests)
        target_link_libraries(${target} PRIVATE ${ARG_LIBS} orrerion_test_support)
        target_compile_definitions(${target} PRIVATE
            ORRERION_SOURCE_DIR="${CMAKE_SOURCE_DIR}"
            ORRERION_BINARY_DIR="${CMAKE_BINARY_DIR}")
        if(kind STREQUAL "gtest")
            target_link_libraries(${target} PRIVATE GTest::gtest GTest::gmock GTest::gtest_main)
            gtest_discover_tests(${target} DISCOVERY_TIMEOUT 30 PROPERTIES TIMEOUT 120)
        else()
            target_link_libraries(${target} PRIVATE Qt6::Test)
            add_test(NAME ${prefix}.${name} COMMAND ${target})
            set_tests_properties(${prefix}.${name} PROPERTIES TIMEOUT 120
                ENVIRONMENT "QT_QPA_PLATFORM=offscreen;XDG_CONFIG_HOME=${CMAKE_BINARY_DIR}/test-config/${target};HOME=${CMAKE_BINARY_DIR}/test-home/${target}")
        endif()
    endforeach()
endfunction()

# orrerion_library(<name> <dir>...): a static library of every source below the folders; an
# interface library while a folder holds headers only.
function(orrerion_library name)
    orrerion_sources(files ${ARGN})
    list(FILTER files INCLUDE REGEX "\\.cpp$")
    if(files)
        orrerion_sources(all ${ARGN})
        add_library(${name} STATIC ${all})
        set(${name}_KIND PUBLIC PARENT_SCOPE)
    else()
        add_library(${name} INTERFACE)
        set(${name}_KIND INTERFACE PARENT_SCOPE)
    endif()
endfunction()
