#include <windows.h>

#include <filesystem>
#include <mutex>
#include <string_view>
#include <vector>

#include "apps/protcsv/console/interruption.h"
#include "platform/portable/files/paths.h"

namespace prot {

namespace {

constexpr UINT exit_interrupted = 130;

struct Running {
    // Whoever holds it cannot be stopped: the system runs the handler in a thread of its own.
    std::recursive_mutex mutex;
    std::filesystem::path unfinished_path;
    std::filesystem::path unfinished_folder;
    std::vector<std::filesystem::path> files_of_folder;
};

// Never destroyed: the handler may run while the process ends.
Running& running() {
    static Running& state = *new Running;
    return state;
}

void say_last_words() {
    const HANDLE error = GetStdHandle(STD_ERROR_HANDLE);
    DWORD mode = 0, written = 0;
    const std::string_view words =
        GetConsoleMode(error, &mode) != 0 ? "\r\nabgebrochen\r\n" : "abgebrochen\n";
    WriteFile(error, words.data(), static_cast<DWORD>(words.size()), &written, nullptr);
}

BOOL WINAPI stop(DWORD /*event*/) {
    running().mutex.lock();  // for good: nothing is written any more
    if (!running().unfinished_path.empty()) DeleteFileW(running().unfinished_path.c_str());
    for (const auto& file : running().files_of_folder) DeleteFileW(file.c_str());
    if (!running().unfinished_folder.empty()) RemoveDirectoryW(running().unfinished_folder.c_str());
    say_last_words();
    // Not by way of the libraries' last words, which may wait for the thread that was interrupted.
    TerminateProcess(GetCurrentProcess(), exit_interrupted);
    return TRUE;
}

}  // namespace

void handle_interruptions() { SetConsoleCtrlHandler(stop, TRUE); }

void set_unfinished_file(const std::string& path) {
    const InterruptionsWait wait;
    running().unfinished_path = text_path(path);
}

void set_unfinished_folder(const std::string& folder, std::span<const std::string> files) {
    const InterruptionsWait wait;
    running().unfinished_folder = text_path(folder);
    running().files_of_folder.clear();
    for (const std::string& file : files)
        running().files_of_folder.push_back(running().unfinished_folder / text_path(file));
}

InterruptionsWait::InterruptionsWait() { running().mutex.lock(); }

InterruptionsWait::~InterruptionsWait() { running().mutex.unlock(); }

}  // namespace prot
