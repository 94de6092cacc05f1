# Small programs for Windows, where the machine has the compilers for it.
find_program(MINGW_C32 i686-w64-mingw32-gcc)
find_program(MINGW_C64 x86_64-w64-mingw32-gcc)

# windows_program(NAME COMPILER SOURCE OUTPUT ENTRY): one file of C without the C library.
function(windows_program name compiler source output entry)
  get_filename_component(folder "${output}" DIRECTORY)
  add_custom_command(
    OUTPUT "${output}"
    COMMAND ${CMAKE_COMMAND} -E make_directory "${folder}"
    COMMAND "${compiler}" -std=c11 -Wall -Wextra -Werror -Os -s -mwindows -nostdlib -ffreestanding
            -fno-stack-protector -mno-stack-arg-probe -Wl,--entry,${entry} -Wl,--no-insert-timestamp
            -o "${output}" "${source}" -lshell32 -lshlwapi -luser32 -lkernel32
    DEPENDS "${source}"
    COMMENT "Building ${name} for Windows")
  add_custom_target(${name} ALL DEPENDS "${output}")
endfunction()
