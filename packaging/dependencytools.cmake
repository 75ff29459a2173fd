# Run by cpack before it packs: without these programs it would pack all the same, and the package would
# not depend on the libraries that it needs.
if(CPACK_GENERATOR STREQUAL "DEB")
    foreach(program file dpkg-shlibdeps)
        find_program(found_${program} ${program})
        if(NOT found_${program})
            message(FATAL_ERROR "The dependencies cannot be found without ${program} "
                                "(packages file and dpkg-dev). ./package installs both.")
        endif()
    endforeach()
endif()
