# InstallUnlessPresent(DESTINATION <folder> FILES <file>... [COMPONENT <name>])
#
# Installs files that belong to the people who use the program once they are there: a file is put
# into <folder> (below the install prefix) only if no file of that name is there yet, so that
# installing again never takes away what a user has changed.
function(InstallUnlessPresent)
    cmake_parse_arguments(PARSE_ARGV 0 arg "" "DESTINATION;COMPONENT" "FILES")
    if(NOT arg_DESTINATION OR arg_UNPARSED_ARGUMENTS)
        message(FATAL_ERROR "InstallUnlessPresent needs DESTINATION <folder> and FILES <file>...")
    endif()
    set(component "")
    if(arg_COMPONENT)
        set(component COMPONENT "${arg_COMPONENT}")
    endif()
    foreach(file IN LISTS arg_FILES)
        get_filename_component(file "${file}" ABSOLUTE)
        get_filename_component(name "${file}" NAME)
        install(CODE "
            set(folder \"\${CMAKE_INSTALL_PREFIX}/${arg_DESTINATION}\")
            get_filename_component(folder \"\${folder}\" ABSOLUTE)
            set(present \"\$ENV{DESTDIR}\${folder}/${name}\")
            if(EXISTS \"\${present}\" OR IS_SYMLINK \"\${present}\")
                message(STATUS \"Kept: \${present}\")
            else()
                file(INSTALL DESTINATION \"\${folder}\" TYPE FILE FILES \"${file}\")
            endif()" ${component})
    endforeach()
endfunction()
