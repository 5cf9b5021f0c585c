#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <random>
#include <string>
#include <string_view>

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t max_size);

/// Changes a document by whole tags and texts, so that many of the changed documents still are well-formed. A
/// third of the changes is left to libFuzzer, which changes bytes.
namespace {

// clang-format off
constexpr std::string_view pieces_of_text[] = {
    "a", "\xC3\xA4", " ", "\n", "\r", "\r\n", "]", "]]", ">", "&lt;", "&amp;", "&#13;", "&#10;", "&#x20AC;",
    "<![CDATA[]]>", "<![CDATA[b]]>", "<![CDATA[\r]]>", "<![CDATA[&lt;\r\n]]]]>", "<!---->", "<!-- c -->",
    "<?p?>", "<?p q?>", "<x/>", "<x>d</x>", "<x y='z'></x >", "<OldValue/>", "<NewValue>e</NewValue>",
};
constexpr std::string_view tags[] = {
    "<x>", "</x>", "<OldValue>", "</OldValue>", "<NewValue>", "</NewValue>", "<Col>", "</Col>", "<Cols>", "</Cols>",
    "<Row>", "</Row>", "<OldValue/>", "<NewValue/>", "<OldValue>e</OldValue>", "<NewValue>f&gt;</NewValue>",
    "<Col/>", "<Col Name='n'>", "<Col Name=''/>", "<Col Name=\"m\"><OldValue>g</OldValue></Col>", "<Cols/>",
    "<Cols><Col Name='n'/></Cols>", "<Row Name='n'><OldValue/></Row>",
};
constexpr std::string_view attributes[] = {
    " Name='n'", " Name=\"\"", " Name='&#9;\t'", " Name = \"a\r\nb&amp;\"", " a=''", " b=\"&quot;'\"", " ", "\r\n",
};
// clang-format on

class MarkupMutation {
public:
    MarkupMutation(std::string& document, unsigned seed) : document_(document), random_(seed) {}

    bool is_left_to_bytes() { return below(3) == 0; }

    void change() {
        const std::size_t one = edge(), other = edge();
        const std::size_t first = std::min(one, other), length = std::max(one, other) - first;
        switch (below(8)) {
            case 0:
                document_.insert(one, one_of(tags));
                break;
            case 1:
                document_.insert(one, text());
                break;
            case 2:
            case 3:
                document_.insert(one, "<OldValue>" + text() + "</OldValue>");
                break;
            case 4:
                insert_attribute();
                break;
            case 5:
                document_.erase(first, length);
                break;
            case 6:
                document_.insert(edge(), document_.substr(first, length));
                break;
            default:
                document_.insert(first + length, "</x>");
                document_.insert(first, "<x>");
        }
    }

    std::size_t below(std::size_t end) { return random_() % end; }

private:
    template <std::size_t size>
    std::string_view one_of(const std::string_view (&texts)[size]) {
        return texts[below(size)];
    }

    std::string text() {
        std::string text;
        for (std::size_t pieces = 1 + below(8); pieces > 0; --pieces) text += one_of(pieces_of_text);
        return text;
    }

    // A place in front of a tag or behind one, or the end.
    std::size_t edge() {
        const std::size_t place = document_.find_first_of("<>", below(document_.size() + 1));
        if (place == std::string::npos) return document_.size();
        return document_[place] == '<' ? place : place + 1;
    }

    void insert_attribute() {
        const std::size_t place = document_.find_first_of("/>", below(document_.size() + 1));
        if (place != std::string::npos) document_.insert(place, one_of(attributes));
    }

    std::string& document_;
    std::minstd_rand random_;
};

}  // namespace

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t max_size,
                                               unsigned seed) {
    std::string document(reinterpret_cast<const char*>(data), size);
    MarkupMutation mutation(document, seed);
    if (mutation.is_left_to_bytes()) return LLVMFuzzerMutate(data, size, max_size);
    for (std::size_t changes = 1 + mutation.below(3); changes > 0; --changes) mutation.change();
    document.resize(std::min(document.size(), max_size));
    std::copy(document.begin(), document.end(), data);
    return document.size();
}
