# One interface target carries every compiler flag; tavimo_library() makes one static library per folder.

add_library(tavimo_flags INTERFACE)
target_compile_options(tavimo_flags INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Wcast-align
    -Wimplicit-fallthrough -Wextra-semi -Werror)
target_compile_definitions(tavimo_flags INTERFACE
    QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_CAST_FROM_BYTEARRAY QT_NO_URL_CAST_FROM_STRING
    QT_NO_FOREACH QT_NO_CONTEXTLESS_CONNECT QT_DISABLE_DEPRECATED_BEFORE=0x060400)
target_include_directories(tavimo_flags INTERFACE ${CMAKE_SOURCE_DIR}/src ${CMAKE_BINARY_DIR}/generated)
# A file, a network answer or a dropped text that gets further than it should meets these.
if(CMAKE_BUILD_TYPE STREQUAL "Release")
    target_compile_definitions(tavimo_flags INTERFACE _FORTIFY_SOURCE=2)
    target_compile_options(tavimo_flags INTERFACE -fstack-protector-strong)
    target_link_options(tavimo_flags INTERFACE -Wl,-z,relro -Wl,-z,now)
else()
    target_compile_definitions(tavimo_flags INTERFACE _GLIBCXX_ASSERTIONS)
endif()
if(TAVIMO_SANITIZE)
    target_compile_options(tavimo_flags INTERFACE
        -fsanitize=${TAVIMO_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(tavimo_flags INTERFACE -fsanitize=${TAVIMO_SANITIZE})
endif()

# All targets of one kind share one precompiled header.
file(WRITE ${CMAKE_BINARY_DIR}/generated/pch.cpp "")
function(tavimo_precompiled_header name header)
    add_library(${name} STATIC ${CMAKE_BINARY_DIR}/generated/pch.cpp)
    target_link_libraries(${name} PUBLIC tavimo_flags ${ARGN})
    set_target_properties(${name} PROPERTIES AUTOMOC OFF AUTOUIC OFF AUTORCC OFF)
    target_precompile_headers(${name} PRIVATE ${header})
endfunction()
tavimo_precompiled_header(tavimo_pch_core ${CMAKE_SOURCE_DIR}/cmake/pch_core.h Qt6::Core Qt6::Network)
if(TAVIMO_GUI)
    tavimo_precompiled_header(tavimo_pch_widgets ${CMAKE_SOURCE_DIR}/cmake/pch_widgets.h
        Qt6::Core Qt6::Network Qt6::Widgets Qt6::Svg)
endif()

# tavimo_library(<name> [WIDGETS] SOURCES <files...> [LINK <targets...>])
# Without WIDGETS only Qt Core and Network are linked, so that a widget header does not compile there.
function(tavimo_library name)
    cmake_parse_arguments(arg "WIDGETS" "" "SOURCES;LINK" ${ARGN})
    add_library(${name} STATIC ${arg_SOURCES})
    set_target_properties(${name} PROPERTIES LINKER_LANGUAGE CXX)
    target_link_libraries(${name} PUBLIC tavimo_flags Qt6::Core Qt6::Network ${arg_LINK})
    if(arg_WIDGETS)
        target_link_libraries(${name} PUBLIC Qt6::Widgets Qt6::Svg)
        target_precompile_headers(${name} REUSE_FROM tavimo_pch_widgets)
    else()
        target_precompile_headers(${name} REUSE_FROM tavimo_pch_core)
    endif()
endfunction()
