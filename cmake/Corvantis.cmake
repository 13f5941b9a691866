# Shared build helpers of the Corvantis tree.

# Warnings on for our own targets only, so that a project that adds this tree
# keeps its own flags.
function(corvantis_warnings target)
  target_compile_options(${target} PRIVATE -Wall -Wextra)
endfunction()

# Collects the sources of one folder (headers, sources, resource files).
function(corvantis_sources out dir)
  file(GLOB found CONFIGURE_DEPENDS
    ${dir}/*.cpp ${dir}/*.h ${dir}/*.qrc)
  set(${out} ${found} PARENT_SCOPE)
endfunction()

# One Qt Test executable registered with CTest, offscreen, with its own
# settings, data and trace folders so that no test touches the user's files.
#   corvantis_add_test(tst_name SOURCE file.cpp LIBS lib... [ENV VAR=value...])
function(corvantis_add_test name)
  cmake_parse_arguments(T "" "" "SOURCES;LIBS;ENV" ${ARGN})
  add_executable(${name} ${T_SOURCES})
  target_link_libraries(${name} PRIVATE Qt6::Test ${T_LIBS})
  corvantis_warnings(${name})
  set(home ${CMAKE_CURRENT_BINARY_DIR}/home/${name})
  file(MAKE_DIRECTORY ${home})
  add_test(NAME ${name} COMMAND ${name})
  set_tests_properties(${name} PROPERTIES
    TIMEOUT 300
    ENVIRONMENT "QT_QPA_PLATFORM=offscreen;HOME=${home};XDG_CONFIG_HOME=${home}/config;XDG_DATA_HOME=${home}/data;XDG_RUNTIME_DIR=${home}/runtime;CORVANTIS_INI_DIR=${home}/ini;CORVANTIS_TRACE=${home}/Corvantis.trace;QT_LOGGING_RULES=qt.multimedia*=false;${T_ENV}")
endfunction()
