#include <windows.h>

#include <filesystem>
#include <fstream>

#include "platform/windows/text/wide_text.h"

/// Stands in for the program that the system has registered for a kind of file. Usage: note_argument NOTES
/// FILE Adds FILE to the file NOTES, as a line in UTF-8.
int WINAPI wWinMain(HINSTANCE, HINSTANCE, LPWSTR, int) {
    if (__argc != 3) return 2;
    std::ofstream notes(std::filesystem::path(__wargv[1]), std::ios::binary | std::ios::app);
    notes << prot::to_utf8(__wargv[2]) << '\n';
    notes.close();
    return notes ? 0 : 1;
}
