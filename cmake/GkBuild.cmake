# Helpers that every folder's CMakeLists.txt uses.
#
# A *layer* is one folder of the source tree. It is an object library whose include path holds its own
# folder and those of the layers that it names as DEPENDS, so that an include that runs upwards does not compile.

function(gk_compile_options target)
  target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor
    -Woverloaded-virtual -Wcast-qual -Wformat=2)
  if(GK_WERROR)
    target_compile_options(${target} PRIVATE -Werror)
  endif()
  if(GK_SANITIZE)
    target_compile_options(${target} PRIVATE -fsanitize=address,undefined -fno-omit-frame-pointer
      -fno-sanitize-recover=undefined)
    target_link_options(${target} PRIVATE -fsanitize=address,undefined)
  endif()
  target_compile_definitions(${target} PRIVATE QT_NO_FOREACH QT_NO_URL_CAST_FROM_STRING
    QT_DISABLE_DEPRECATED_BEFORE=0x060400)
endfunction()

# gk_layer(<name> LIBRARY <shared library> [DEPENDS <layer>...] [LINK <target>...]
#          SOURCES <files> [PUBLIC_HEADERS <files>] [HEADERS <files>])
# PUBLIC_HEADERS are installed as gkBase/<file>; HEADERS stay inside.
function(gk_layer name)
  cmake_parse_arguments(ARG "" "LIBRARY" "DEPENDS;LINK;SOURCES;PUBLIC_HEADERS;HEADERS" ${ARGN})
  set(layer gk_${name})
  add_library(${layer} OBJECT ${ARG_SOURCES} ${ARG_PUBLIC_HEADERS} ${ARG_HEADERS})
  target_include_directories(${layer} PUBLIC ${CMAKE_CURRENT_SOURCE_DIR})
  foreach(dep IN LISTS ARG_DEPENDS)
    target_link_libraries(${layer} PUBLIC gk_${dep})
  endforeach()
  target_link_libraries(${layer} PUBLIC ${ARG_LINK})
  target_compile_definitions(${layer} PRIVATE ${ARG_LIBRARY}_EXPORTS)
  gk_compile_options(${layer})

  target_sources(${ARG_LIBRARY} PRIVATE $<TARGET_OBJECTS:${layer}>)
  target_include_directories(${ARG_LIBRARY} PUBLIC $<BUILD_INTERFACE:${CMAKE_CURRENT_SOURCE_DIR}>)
  foreach(header IN LISTS ARG_PUBLIC_HEADERS)
    get_filename_component(base ${header} NAME)
    # The host and the tests of the interface include <gkBase/Class.h>, as an external program does.
    file(CONFIGURE OUTPUT ${CMAKE_BINARY_DIR}/include/gkBase/${base}
         CONTENT "#include \"${CMAKE_CURRENT_SOURCE_DIR}/${header}\"\n")
    install(FILES ${header} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/gkBase)
  endforeach()
endfunction()

# gk_shared_library(<name> <alias>): one of the three shared libraries; the layers add their sources to it.
function(gk_shared_library name alias)
  add_library(${name} SHARED)
  add_library(gkBase::${alias} ALIAS ${name})
  set_target_properties(${name} PROPERTIES EXPORT_NAME ${alias} VERSION ${PROJECT_VERSION}
    SOVERSION ${PROJECT_VERSION_MAJOR} LINKER_LANGUAGE CXX INSTALL_RPATH "$ORIGIN")
  target_include_directories(${name} PUBLIC $<BUILD_INTERFACE:${CMAKE_BINARY_DIR}/include>
    $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)
  target_compile_features(${name} PUBLIC cxx_std_20)
  target_link_options(${name} PRIVATE $<$<NOT:$<BOOL:${GK_SANITIZE}>>:-Wl,--no-undefined>)
  gk_compile_options(${name})
  install(TARGETS ${name} EXPORT gkBaseToolsTargets LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR})
endfunction()

# gk_test(<source> [LINK <target>...]): one test program per file, named after it, run without a screen.
function(gk_test source)
  cmake_parse_arguments(ARG "" "" "LINK;SOURCES" ${ARGN})
  get_filename_component(name ${source} NAME_WE)
  add_executable(${name} ${source} ${ARG_SOURCES})
  target_link_libraries(${name} PRIVATE ${ARG_LINK} Qt6::Test)
  target_include_directories(${name} PRIVATE ${CMAKE_SOURCE_DIR}/tests)
  target_compile_definitions(${name} PRIVATE GK_SOURCE_DIR="${CMAKE_SOURCE_DIR}")
  gk_compile_options(${name})
  set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/tests)
  add_test(NAME ${name} COMMAND ${name})
  set_tests_properties(${name} PROPERTIES TIMEOUT 300
    ENVIRONMENT "QT_QPA_PLATFORM=offscreen;XDG_RUNTIME_DIR=${CMAKE_BINARY_DIR}/runtime;LSAN_OPTIONS=suppressions=${CMAKE_SOURCE_DIR}/cmake/lsan.supp;UBSAN_OPTIONS=print_stacktrace=1;QT_HASH_SEED=0")
endfunction()

# gk_benchmark(<source> LINK <target>...): one Google Benchmark program per file.
function(gk_benchmark source)
  cmake_parse_arguments(ARG "" "" "LINK" ${ARGN})
  get_filename_component(name ${source} NAME_WE)
  add_executable(${name} ${source})
  target_link_libraries(${name} PRIVATE ${ARG_LINK} benchmark::benchmark)
  gk_compile_options(${name})
  set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/benchmarks)
  set_property(GLOBAL APPEND PROPERTY GK_BENCHMARKS ${name})
endfunction()
