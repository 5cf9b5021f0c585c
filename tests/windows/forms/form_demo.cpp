#include <windows.h>

#include <fcntl.h>
#include <io.h>

#include <cstdio>
#include <exception>
#include <string>

#include "platform/windows/forms/dialog_window.h"
#include "platform/windows/forms/progress_window.h"
#include "platform/windows/forms/window_forms.h"
#include "platform/windows/system/finished_file.h"
#include "platform/windows/system/save_dialog.h"
#include "platform/windows/system/system_message_boxes.h"
#include "platform/windows/text/wide_text.h"
#include "tests/windows/forms/demo_form.h"
#include "tests/windows/forms/key_times.h"
#include "tests/windows/forms/picker_form.h"

/// Shows one of the system's faces, for a test to look at and to type into. Usage: form_demo
/// owned|alone|picker|typing|save PATH|progress|open PATH|hold PATH. What happens is told on standard output,
/// a line each, in UTF-8.
namespace prot::demo {

namespace {

void tell(const std::string& line) {
    std::printf("%s\n", line.c_str());
    std::fflush(stdout);
}

SystemMessageBoxes boxes([](AutomationError error) { tell("refused box: " + error.description()); });

void show_window_of(Form& form) {
    WindowForms forms([] { tell("refused form"); });
    try {
        forms.show_modal(form);
    } catch (const std::exception& error) {
        tell(std::string("error: ") + error.what());
    }
}

void show_form() {
    DemoForm demo(boxes, tell);
    show_window_of(demo.form());
}

void show_picker() {
    PickerForm picker(tell);
    show_window_of(picker.form());
}

/// A picker that types by itself, to be timed.
void show_typing() {
    PickerForm picker(tell);
    show_and_type(
        picker.form(), [&] { show_window_of(picker.form()); }, tell);
}

/// A host with a window of its own, which the form belongs to.
void show_owned_form() {
    const HWND host = CreateWindowExW(0, L"STATIC", L"Hauptfenster", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 60, 40,
                                      1100, 900, nullptr, nullptr, nullptr, nullptr);
    SetForegroundWindow(host);
    show_form();
    tell(IsWindowEnabled(host) ? "owner enabled" : "owner disabled");
    tell(GetActiveWindow() == host ? "owner active" : "owner not active");
    DestroyWindow(host);
}

void ask_file(const std::string& suggestion) {
    SaveDialog dialog(boxes, [] { tell("refused dialog"); });
    const auto path = dialog.ask(suggestion, {});
    tell(path ? "file: " + *path : "no file");
}

/// Another program that has the file open.
void hold_file(const std::string& path) {
    const HANDLE file = CreateFileW(to_wide(path).c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr,
                                    OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    tell(file == INVALID_HANDLE_VALUE ? "not held" : "held");
    Sleep(INFINITE);
}

/// A run that stays at its half for some seconds, to be looked at.
void show_progress() {
    ProgressWindow progress("Protokollausgabe Devisenkurse");
    constexpr std::int32_t rows = 20000;
    progress.gRefresh();
    for (std::int32_t row = 0; row < rows / 2; row += 16) {
        progress.gSetFortschritt(row, rows);
        Sleep(1);
    }
    for (int look = 0; look < 80; ++look) {
        Sleep(60);
        progress.gSetFortschritt(rows / 2, rows);
        if (look == 0) tell("half");
    }
}

int run(const std::wstring& face, const std::string& path) {
    if (face == L"owned")
        show_owned_form();
    else if (face == L"alone")
        show_form();
    else if (face == L"picker")
        show_picker();
    else if (face == L"typing")
        show_typing();
    else if (face == L"save")
        ask_file(path);
    else if (face == L"progress")
        show_progress();
    else if (face == L"open")
        open_finished_file(path, boxes);
    else if (face == L"hold")
        hold_file(path);
    else
        return 2;
    tell("end");
    return 0;
}

}  // namespace

}  // namespace prot::demo

int wmain(int argument_count, wchar_t** arguments) {
    if (argument_count < 2) return 2;
    _setmode(_fileno(stdout), _O_BINARY);  // no CR before LF
    return prot::demo::run(arguments[1], argument_count > 2 ? prot::to_utf8(arguments[2]) : std::string());
}
