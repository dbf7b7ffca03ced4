# Warnings are errors in our own code only; third-party headers come in as SYSTEM.
function(tolv_warnings target)
  target_compile_options(${target} PRIVATE -Wall -Wextra -Werror -Wno-unused-parameter)
endfunction()

# A stand-in library for one closed platform component: every .cpp in the
# calling folder is compiled into a shared library of that name.
function(tolv_platform_library name)
  cmake_parse_arguments(ARG "" "" "LINK;PRIVATE_LINK" ${ARGN})
  file(GLOB_RECURSE sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp)
  if(sources)
    add_library(${name} SHARED ${sources})
    tolv_warnings(${name})
    set(scope PUBLIC)
  else()
    # Nothing compiled yet: headers only.
    add_library(${name} INTERFACE)
    set(scope INTERFACE)
  endif()
  add_library(TolvDataBase::${name} ALIAS ${name})
  target_include_directories(${name} ${scope}
    $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}>
    $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/TolvDataBase>)
  if(ARG_LINK)
    target_link_libraries(${name} ${scope} ${ARG_LINK})
  endif()
  if(ARG_PRIVATE_LINK AND sources)
    target_link_libraries(${name} PRIVATE ${ARG_PRIVATE_LINK})
  endif()
  set_property(GLOBAL APPEND PROPERTY TOLV_INSTALLED_TARGETS ${name})
endfunction()

# Adds every .cpp of the calling folder (recursively) to the module.
function(tolv_module_sources)
  file(GLOB_RECURSE sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp)
  if(sources)
    target_sources(TolvDataBase PRIVATE ${sources})
  endif()
endfunction()
