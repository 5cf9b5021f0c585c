#include <windows.h>

#include <algorithm>
#include <utility>

#include "platform/portable/files/atomic_file.h"
#include "platform/portable/files/brief_use_windows.h"
#include "platform/portable/files/folder_access.h"
#include "platform/portable/files/numbered_name.h"
#include "platform/portable/files/temporary_name.h"
#include "platform/portable/files/windows_error.h"

namespace prot {

namespace {

namespace fs = std::filesystem;

// Windows says itself which names are devices; it is not the same in every version.
bool is_device(const fs::path& full) {
    const std::wstring& name = full.native();
    if (name.starts_with(L"\\\\.\\")) return true;
    // A pipe of another computer: \\server\pipe\…
    const std::size_t behind_server = name.starts_with(L"\\\\") ? name.find(L'\\', 2) : std::wstring::npos;
    return behind_server != std::wstring::npos &&
           CompareStringOrdinal(name.c_str() + behind_server, 6, L"\\pipe\\", 6, TRUE) == CSTR_EQUAL;
}

// A temporary name may be longer than the functions below take, although the target's is not; they take any
// length when the path is marked as literal.
fs::path at_any_length(const fs::path& path) {
    constexpr std::size_t usual_length = MAX_PATH - 1;
    const std::wstring full = absolute_path(path).native();
    if (full.size() <= usual_length || full.starts_with(L"\\\\?\\")) return path;
    return full.starts_with(L"\\\\") ? L"\\\\?\\UNC" + full.substr(1) : L"\\\\?\\" + full;
}

class WindowsFile : public PendingFile {
public:
    WindowsFile(const fs::path& target, Existing existing)
        : shown_(target), existing_(existing), final_(target) {
        std::error_code ignored;
        if (!target.has_filename() || fs::is_directory(target, ignored))
            throw file_error(shown_, std::make_error_code(std::errc::is_a_directory));
        place_ = at_any_length(target);
        if (!is_device(absolute_path(target))) temporary_ = at_any_length(temporary_name(target));
    }
    ~WindowsFile() override { WindowsFile::discard(); }
    WindowsFile(const WindowsFile&) = delete;
    WindowsFile& operator=(const WindowsFile&) = delete;

    const fs::path& temporary_path() const override { return temporary_; }

    void create() override {
        const bool direct = temporary_.empty();
        // Shared for deletion, so that a program that is stopped can remove what it is still writing.
        handle_ =
            CreateFileW(direct ? place_.c_str() : temporary_.c_str(), GENERIC_WRITE,
                        direct ? FILE_SHARE_READ | FILE_SHARE_WRITE : FILE_SHARE_READ | FILE_SHARE_DELETE,
                        nullptr, direct ? OPEN_EXISTING : CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr);
        if (handle_ == INVALID_HANDLE_VALUE) fail_with_last_error();
        made_ = !direct;
    }

    void write(std::string_view bytes) override {
        constexpr std::size_t most_at_once = std::size_t{1} << 30;
        while (!bytes.empty()) {
            DWORD written = 0;
            const auto size = static_cast<DWORD>(std::min(bytes.size(), most_at_once));
            if (WriteFile(handle_, bytes.data(), size, &written, nullptr) == 0) fail_with_last_error();
            bytes.remove_prefix(written);
        }
    }

    void complete() override {
        if (made_ && FlushFileBuffers(handle_) == 0) fail_with_last_error();
        if (CloseHandle(std::exchange(handle_, INVALID_HANDLE_VALUE)) == 0) fail_with_last_error();
        if (!made_) return;
        if (const std::error_code error = put_in_place()) fail(error);
        made_ = false;
    }

    const fs::path& place() const override { return final_; }

    void discard() noexcept override {
        if (handle_ != INVALID_HANDLE_VALUE) CloseHandle(std::exchange(handle_, INVALID_HANDLE_VALUE));
        if (std::exchange(made_, false)) DeleteFileW(temporary_.c_str());
    }

private:
    [[noreturn]] void fail(std::error_code reason) const { throw file_error(shown_, reason); }
    [[noreturn]] void fail_with_last_error() const { fail(windows_error(GetLastError())); }

    std::error_code put_in_place() {
        if (existing_ == Existing::replaced) return move_to(place_, MOVEFILE_REPLACE_EXISTING);
        std::error_code error;
        for (int number = 1; number <= most_numbered_names; ++number) {
            final_ = numbered_name(shown_, number);
            error = move_to(at_any_length(final_), 0);
            if (error != std::errc::file_exists) return error;
        }
        return error;
    }

    std::error_code move_to(const fs::path& place, DWORD replacing) const {
        return after_brief_use([&]() -> std::error_code {
            if (MoveFileExW(temporary_.c_str(), place.c_str(), MOVEFILE_WRITE_THROUGH | replacing) != 0)
                return {};
            return reason_of_refusal(GetLastError(), place);
        });
    }

    // Access to the place is denied for a folder and for a file that is open elsewhere, too.
    static std::error_code reason_of_refusal(DWORD code, const fs::path& place) {
        if (code != ERROR_ACCESS_DENIED) return windows_error(code);
        std::error_code ignored;
        if (fs::is_directory(place, ignored)) return std::make_error_code(std::errc::is_a_directory);
        const HANDLE probe =
            CreateFileW(place.c_str(), DELETE, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                        nullptr, OPEN_EXISTING, 0, nullptr);
        if (probe == INVALID_HANDLE_VALUE) return windows_error(GetLastError());
        CloseHandle(probe);
        return windows_error(code);
    }

    const fs::path shown_;
    const Existing existing_;
    fs::path final_;
    fs::path place_;
    fs::path temporary_;  // empty: the target is a device
    HANDLE handle_ = INVALID_HANDLE_VALUE;
    bool made_ = false;  // the temporary file exists
};

// fs::create_directories does not know shared folders.
std::error_code make_with_parents(const fs::path& folder) {
    const DWORD attributes = GetFileAttributesW(folder.c_str());
    if (attributes != INVALID_FILE_ATTRIBUTES)
        return attributes & FILE_ATTRIBUTE_DIRECTORY ? std::error_code()
                                                     : std::make_error_code(std::errc::not_a_directory);
    const fs::path parent = folder.parent_path();
    if (!parent.empty() && parent != folder) {
        if (const std::error_code error = make_with_parents(parent)) return error;
    }
    // Behind a separator at its end there is nothing left to make; another run may have been faster.
    if (!folder.has_filename() || CreateDirectoryW(folder.c_str(), nullptr) != 0 ||
        GetLastError() == ERROR_ALREADY_EXISTS)
        return {};
    return windows_error(GetLastError());
}

class WindowsFiles : public FileLayer {
public:
    void make_folder(const fs::path& folder) override {
        std::error_code error = make_with_parents(folder);
        if (error) throw folder_error(folder, error);
        error = after_brief_use([&] { return folder_refusal(folder); });
        if (error) throw closed_folder_error(folder, error);
    }

    std::unique_ptr<PendingFile> prepare(const fs::path& target, Existing existing) override {
        return std::make_unique<WindowsFile>(target, existing);
    }
};

}  // namespace

FileLayer& system_files() {
    static WindowsFiles files;
    return files;
}

}  // namespace prot
