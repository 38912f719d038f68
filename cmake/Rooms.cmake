# A room is a folder of sources with a target. It can include its own headers, those of the rooms that it
# uses, and what these can. Every header goes by its name from the top of the repository
# ("store/TableNames.h"), but the top is in no compiler's path: each target brings a folder in which
# there is nothing but a link to its own sources.

# From here on, `target` and what links it find the headers of `folder`.
function(ShowFolder target kind folder)
    set(way ${CMAKE_BINARY_DIR}/rooms/${target})
    get_filename_component(parent ${way}/${folder} DIRECTORY)
    file(MAKE_DIRECTORY ${parent})
    file(CREATE_LINK ${CMAKE_SOURCE_DIR}/${folder} ${way}/${folder} SYMBOLIC)
    target_include_directories(${target} ${kind} ${way})
endfunction()

# As many sources at once, 0 for all: most of a compiler's time goes into the toolkit's headers.
function(CompileTogether target count)
    if(DUTYGRID_UNITY)
        set_target_properties(${target} PROPERTIES UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE ${count})
        # To the compiler a source is a header then, whose classes should hold nothing local.
        target_compile_options(${target} PRIVATE $<$<CXX_COMPILER_ID:GNU>:-Wno-subobject-linkage>)
    endif()
endfunction()

# The target of a room is called room_platform_forms for platform/forms.
function(RoomTarget result room)
    string(REPLACE / _ target room_${room})
    set(${result} ${target} PARENT_SCOPE)
endfunction()

function(RoomSources result room)
    file(GLOB sources CONFIGURE_DEPENDS ${room}/*.cpp ${room}/*.h ${room}/*.ui)
    list(FILTER sources EXCLUDE REGEX "/Main\\.cpp$")
    set(${result} ${sources} PARENT_SCOPE)
endfunction()

# Room(<folder> USES <folders of rooms> LIBRARIES <targets of other libraries>)
function(Room room)
    cmake_parse_arguments(PARSE_ARGV 1 it "" "" "USES;LIBRARIES")
    RoomTarget(target ${room})
    RoomSources(sources ${room})
    add_library(${target} STATIC ${sources})
    CompileTogether(${target} 0)
    ShowFolder(${target} PUBLIC ${room})
    foreach(used IN LISTS it_USES)
        RoomTarget(usedTarget ${used})
        if(NOT TARGET ${usedTarget})
            message(FATAL_ERROR "${room} uses ${used}, which is no room below it")
        endif()
        target_link_libraries(${target} PUBLIC ${usedTarget})
    endforeach()
    target_link_libraries(${target} PUBLIC ${it_LIBRARIES})
    set_property(TARGET ${target} PROPERTY ROOM ${room})
    set_property(GLOBAL APPEND PROPERTY ROOM_TARGETS ${target})
endfunction()

# ModuleRoom(<folder> <module> LIBRARIES <targets of other libraries>): a room that is loaded at run time
# from beside the program. Others see its headers only.
function(ModuleRoom room module)
    cmake_parse_arguments(PARSE_ARGV 2 it "" "" "LIBRARIES")
    RoomTarget(target ${room})
    add_library(${target} INTERFACE)
    ShowFolder(${target} INTERFACE ${room})
    RoomSources(sources ${room})
    add_library(${module} MODULE ${sources})
    set_target_properties(${module} PROPERTIES PREFIX "" CXX_VISIBILITY_PRESET hidden)
    target_link_libraries(${module} PRIVATE ${target} ${it_LIBRARIES})
    set_property(TARGET ${target} PROPERTY ROOM ${room})
    set_property(GLOBAL APPEND PROPERTY ROOM_TARGETS ${target})
endfunction()
