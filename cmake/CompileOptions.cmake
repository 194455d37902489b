# The flags of every target of ours: warnings are errors, and doubles round the same everywhere.
add_library(project_options INTERFACE)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    target_compile_options(project_options INTERFACE
        -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Wdouble-promotion -Wduplicated-cond -Wlogical-op
        -Wsuggest-override -Wold-style-cast -Werror
        # g++ 12 sees overlapping copies in `"text" + std::string` where there are none.
        -Wno-restrict
        # A fused multiply-add would round once where the program rounds twice.
        -ffp-contract=off)
else()
    # clang builds the targets of the fuzzer alone, and may warn of what g++ does not.
    target_compile_options(project_options INTERFACE -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Wdouble-promotion
                           -Wold-style-cast -ffp-contract=off)
endif()
if(PINTALUX_SANITIZE)
    target_compile_options(project_options INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=undefined
                           -fno-omit-frame-pointer
                           # Instrumented code of the standard library looks uninitialized to g++ 12.
                           -Wno-maybe-uninitialized)
    target_link_options(project_options INTERFACE -fsanitize=address,undefined)
endif()

if(PINTALUX_FUZZ)
    target_compile_options(project_options INTERFACE -fsanitize=fuzzer-no-link,address,undefined
                           -fno-sanitize-recover=undefined -fno-omit-frame-pointer)
    target_link_options(project_options INTERFACE -fsanitize=address,undefined)
endif()

# add_folder(<target> <folder>): a library of the .cpp files of one folder.
function(add_folder target)
    file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/${ARGV1}/*.cpp)
    add_library(${target} STATIC ${sources})
    target_include_directories(${target} PUBLIC ${PROJECT_SOURCE_DIR}/src)
    target_link_libraries(${target} PRIVATE project_options)
endfunction()
