#include "platform/portable/xml/document_reader.h"

#include <span>
#include <string>
#include <vector>

#include "platform/portable/xml/xml_scanner.h"
#include "platform/portable/xml/xml_text.h"

namespace prot {

namespace {

using xml::Form;
using xml::Stretch;

/// Views into the document or the resolved text; without data where the column has no such part.
struct Column {
    std::string_view name, old_value, new_value;
};

/// Collects the columns while a document is scanned.
class Columns {
public:
    /// For a document of `size` bytes; nothing of the one before is left.
    void begin_document(std::size_t size) {
        xml::clear_kept(columns_);
        xml::clear_kept(resolved_);
        size_ = size;
        depth_ = 0;
        cols_ = not_yet;
        in_column_ = false;
        part_ = nullptr;
    }

    std::span<const Column> found() const { return columns_; }

    [[gnu::always_inline]] void begin_element(std::string_view name) {
        ++depth_;
        switch (depth_ - cols_) {
            case 1:
                in_column_ = name == "Col";
                if (in_column_) columns_.emplace_back();
                break;
            case 2:
                if (in_column_ && name.size() == 8) begin_value(name);
                break;
            default:
                if (cols_ == not_yet && name == "Cols") cols_ = depth_;
        }
    }

    [[gnu::always_inline]] void attribute(std::string_view name, Stretch value) {
        if (depth_ - cols_ != 1 || !in_column_ || name != "Name") return;
        part_ = &columns_.back().name;
        begin_part(value.raw.data());
        add(value);
        part_ = nullptr;
    }

    [[gnu::always_inline]] void text(Stretch text) {
        if (part_ != nullptr) add(text);
    }

    [[gnu::always_inline]] void end_element() {
        switch (depth_ - cols_) {
            case 0:
                cols_ = gone;
                break;
            case 2:
                part_ = nullptr;
                break;
        }
        --depth_;
    }

private:
    // Depths of Cols that no element has, nor is any one or two below them.
    static constexpr std::size_t not_yet = static_cast<std::size_t>(-1) / 2, gone = not_yet - 4;

    [[gnu::always_inline]] void begin_value(std::string_view name) {
        Column& column = columns_.back();
        if (name == "OldValue" && column.old_value.data() == nullptr) part_ = &column.old_value;
        if (name == "NewValue" && column.new_value.data() == nullptr) part_ = &column.new_value;
        if (part_ != nullptr) begin_part(name.data());
    }

    void begin_part(const char* somewhere) {
        *part_ = {somewhere, 0};
        resolving_ = false;
    }

    [[gnu::always_inline]] void add(Stretch text) {
        if (part_->empty() && text.form == Form::plain) {
            *part_ = text.raw;
        } else {
            join(text);
        }
    }

    // All that is resolved is shorter than the document, so that views of it stay valid.
    [[gnu::noinline]] void join(Stretch text) {
        if (!resolving_) {
            resolving_ = true;
            resolved_.reserve(size_);
            resolved_from_ = resolved_.size();
            resolved_.append(*part_);
        }
        xml::append_text(resolved_, text);
        *part_ = std::string_view(resolved_).substr(resolved_from_);
    }

    std::vector<Column> columns_;
    std::string resolved_;  // the texts that do not stand in the document as they are
    std::size_t size_ = 0;
    std::size_t depth_ = 0;
    std::size_t cols_ = not_yet;        // the depth of the first Cols
    bool in_column_ = false;            // in a Col below it
    bool resolving_ = false;            // the part stands in resolved_
    std::size_t resolved_from_ = 0;     // there
    std::string_view* part_ = nullptr;  // that text goes to
};

class DocumentReader : public ChangeDocumentReader {
public:
    bool load(std::string_view document) override {
        loaded_ = false;
        xml::clear_kept(text_);
        text_.assign(document);
        columns_.begin_document(text_.size());
        loaded_ = scanner_.scan(text_);
        return loaded_;
    }

    std::int32_t columns() const override { return static_cast<std::int32_t>(found().size()); }

    std::string_view part(std::int32_t index, ColumnPart part) override {
        if (index < 0 || index >= columns()) return {};
        const Column& column = found()[static_cast<std::size_t>(index)];
        switch (part) {
            case ColumnPart::name:
                return column.name;
            case ColumnPart::old_value:
                return column.old_value;
            case ColumnPart::new_value:
                return column.new_value;
        }
        return {};
    }

    std::string_view old_value_of(std::string_view name) override {
        for (const Column& column : found()) {
            const bool is_named = column.name.data() != nullptr && column.name == name;
            if (is_named && column.old_value.data() != nullptr) return column.old_value;
        }
        return {};
    }

private:
    std::span<const Column> found() const { return loaded_ ? columns_.found() : std::span<const Column>(); }

    std::string text_;  // the document; the scanner needs the NUL behind it
    Columns columns_;
    xml::Scanner<Columns> scanner_{columns_};
    bool loaded_ = false;
};

}  // namespace

std::unique_ptr<ChangeDocumentReader> create_document_reader() { return std::make_unique<DocumentReader>(); }

}  // namespace prot
