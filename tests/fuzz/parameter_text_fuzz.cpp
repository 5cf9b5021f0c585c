#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/Prot0000UtilitiesBAS.h"
#include "platform/automation/letter_case.h"
#include "platform/automation/utf8.h"
#include "tests/fuzz/claim.h"
#include "tests/unit/support/fakes.h"

/// Input: a key in the first line, a parameter text in the rest.
namespace prot::fuzz {
namespace {

constexpr std::string_view key_framework = "auswertungsrahmen:";
constexpr std::size_t most_scanned_items = 25;  // 24 keys and the flag

std::string_view trimmed(std::string_view text) {
    const std::size_t start = text.find_first_not_of(' ');
    if (start == std::string_view::npos) return {};
    return text.substr(start, text.find_last_not_of(' ') + 1 - start);
}

bool contains(std::string_view text, std::string_view part) {
    return text.find(part) != std::string_view::npos;
}

/// The item that begins at `start`: it ends before the slash nearest to the first colon behind its first
/// slash.
std::string_view item_at(std::string_view text, std::size_t start) {
    text.remove_prefix(start);
    const std::size_t first_slash = text.find('/');
    if (first_slash == std::string_view::npos) return text;
    const std::size_t colon = text.find(':', first_slash);
    if (colon == std::string_view::npos) return text;
    return text.substr(0, text.rfind('/', colon));
}

bool has_item(std::string_view text, std::string_view key) {
    const std::string lower = to_lower(trimmed(text));
    const std::string lower_key = to_lower(key);
    const std::string_view rest = lower;
    bool starts_item = true;
    for (std::size_t i = 0; i <= rest.size(); ++i) {
        if (starts_item && rest.substr(i).starts_with(lower_key)) return true;
        starts_item = i < rest.size() && rest[i] == '/';
    }
    return false;
}

class Checks {
public:
    void all(std::string_view key, std::string_view text) {
        check_split(text, false);
        check_unread(text);
        check_split(text, true);
        check_found_item(to_lower(key), text);
        claim(pbCommandVorhanden(text, key) == has_item(text, key), "a key is found at the start of an item");
        claim(host_.errors.empty() && host_.boxes.empty() && host_.pointers.empty(), "nothing is shown");
    }

private:
    void check_split(std::string_view text, bool with_autostart) {
        const std::vector<std::string> parts = gCommandlineSplit(text, with_autostart, environment_);
        claim(!parts.empty(), "there is always what stands before the first slash");
        if (contains(to_lower(text), key_framework)) {
            check_scan(text, parts);
        } else {
            check_joined(text, parts);
        }
        for (const std::string& part : parts) check_item(part);
    }

    static void check_unread(std::string_view text) {
        const std::vector<std::string> unread = unread_parts(text);
        if (!is_valid_utf8(text)) return;  // the parts are made of characters
        for (const std::string& part : unread) {
            claim(contains(text, part) && !contains(part, "/"),
                  "a part that nobody reads stands between slashes");
            claim(!part.empty() && trimmed(part) == part, "it is trimmed, and something");
        }
        if (contains(to_lower(text), key_framework)) return;
        const std::string_view head = trimmed(text.substr(0, text.find('/')));
        claim(unread ==
                  (head.empty() ? std::vector<std::string>() : std::vector<std::string>{std::string(head)}),
              "every slash separates, and before the first one stands no item");
    }

    static void check_joined(std::string_view text, const std::vector<std::string>& parts) {
        std::string joined = parts[0];
        for (std::size_t i = 1; i < parts.size(); ++i) joined += "/" + parts[i];
        claim(joined == text, "the items joined by slashes are the text");
    }

    static void check_scan(std::string_view text, const std::vector<std::string>& parts) {
        claim(parts[0].empty(), "a scan finds nothing before the first slash");
        claim(parts.size() <= 1 + most_scanned_items, "a scan finds each key once");
        for (std::size_t i = 1; i < parts.size(); ++i)
            claim(!parts[i].empty() && contains(text, parts[i]), "a scanned item stands in the text");
    }

    void check_item(const std::string& item) {
        const std::string key = psCommand("/" + item, environment_);
        const std::string value = psComWert("/" + item, environment_);
        if (!contains(item, ":")) {
            claim(key.empty() && value.empty(), "an item without a colon has neither key nor value");
            return;
        }
        claim(!contains(key, ":"), "the first colon separates");
        const std::string_view without_end = std::string_view(item).substr(0, item.find_last_not_of(' ') + 1);
        claim(key + ":" + value == without_end, "key and value are the whole item", key + ":" + value);
    }

    /// `key` is in lower case.
    void check_found_item(const std::string& key, std::string_view text) {
        const std::string found = gbCommandOk(key, text, environment_);
        claim(contains(text, found), "an item stands in the text");
        claim(trimmed(found) == found, "an item is trimmed");
        const std::string lower = to_lower(text);
        if (!contains(lower, key)) claim(found.empty(), "an absent key has no item");
        // Half a character is no key, and a place in one text is one in the other only at the same length.
        if (!is_valid_utf8(key) || trimmed(key) != key || key.empty() || lower.size() != text.size()) return;
        const std::size_t start = lower.find(key);
        if (start == std::string::npos) return;
        claim(found == trimmed(item_at(text, start)), "an item ends before the next item", found);
    }

    test::FakeHost host_;
    Environment& environment_ = host_.environment;
};

}  // namespace
}  // namespace prot::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace prot::fuzz;
    std::string_view text = input_text(data, size);
    const std::string_view key = take_line(text);
    Checks().all(key, text);
    return 0;
}
