#pragma once

#include <windows.h>

#include <string>

#include "platform/progress_pace.h"
#include "platform/progress_parent.h"

namespace prot {

/// The progress of a run as a small window: how many records are done, a bar, the share in percent. It opens
/// with the first record, is brought up to date at most 20 times a second, and then lets the thread's windows
/// answer. Where no window can be made there is none, and the run goes on.
class ProgressWindow : public ProgressParent {
public:
    explicit ProgressWindow(std::string caption);
    ~ProgressWindow() override;
    ProgressWindow(const ProgressWindow&) = delete;
    ProgressWindow& operator=(const ProgressWindow&) = delete;

    void gRefresh() override;
    void gSetFortschritt(std::int32_t lZeile, std::int32_t lLetzte) override;

    /// Takes the window away, before the person is asked or told something.
    void close();

private:
    void open();
    void show(std::int64_t done, std::int64_t total);

    std::string caption_;
    HWND window_ = nullptr, text_ = nullptr, bar_ = nullptr, share_ = nullptr;
    ProgressPace pace_;
    bool unavailable_ = false;  // no window can be made
};

}  // namespace prot
