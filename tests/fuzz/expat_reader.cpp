#include "tests/fuzz/expat_reader.h"

#include <expat.h>

#include <memory>

namespace prot::fuzz {

namespace {

class Reader {
public:
    explicit Reader(ExpatReading& reading)
        : reading_(reading), parser_(XML_ParserCreate("UTF-8"), XML_ParserFree) {
        XML_SetUserData(parser_.get(), this);
        XML_SetElementHandler(parser_.get(), start_element, end_element);
        XML_SetCharacterDataHandler(parser_.get(), character_data);
        XML_SetXmlDeclHandler(parser_.get(), declaration);
        XML_SetStartDoctypeDeclHandler(parser_.get(), document_type);
    }

    void read(std::string_view document) {
        const int size = static_cast<int>(document.size());
        reading_.well_formed = XML_Parse(parser_.get(), document.data(), size, XML_TRUE) == XML_STATUS_OK;
        reading_.invalid_token = XML_GetErrorCode(parser_.get()) == XML_ERROR_INVALID_TOKEN;
        reading_.error_at = static_cast<std::size_t>(XML_GetErrorByteIndex(parser_.get()));
    }

private:
    static Reader& self(void* data) { return *static_cast<Reader*>(data); }

    static void start_element(void* data, const char* name, const char** attributes) {
        self(data).enter(name, attributes);
    }
    static void end_element(void* data, const char*) { self(data).leave(); }
    static void character_data(void* data, const char* text, int size) {
        Reader& reader = self(data);
        if (reader.value_ != nullptr) reader.value_->append(text, static_cast<std::size_t>(size));
    }
    static void declaration(void* data, const char* version, const char*, int) {
        if (version != nullptr) self(data).reading_.version = version;
    }
    static void document_type(void* data, const char*, const char*, const char*, int) {
        XML_StopParser(self(data).parser_.get(), XML_FALSE);
    }

    void enter(std::string_view name, const char** attributes) {
        ++depth_;
        if (cols_ == 0 && name == "Cols") {
            cols_ = depth_;
            inside_cols_ = true;
        } else if (inside_cols_ && depth_ == cols_ + 1) {
            in_column_ = name == "Col";
            if (in_column_) reading_.columns.push_back({attribute(attributes, "Name"), {}, {}});
        } else if (inside_cols_ && in_column_ && depth_ == cols_ + 2) {
            ExpatColumn& column = reading_.columns.back();
            if (name == "OldValue") begin(column.old_value);
            if (name == "NewValue") begin(column.new_value);
        }
    }

    void leave() {
        if (depth_ == cols_) inside_cols_ = false;
        if (inside_cols_ && depth_ == cols_ + 2) value_ = nullptr;
        --depth_;
    }

    void begin(std::optional<std::string>& value) {
        if (!value) value_ = &value.emplace();
    }

    static std::optional<std::string> attribute(const char** attributes, std::string_view wanted) {
        for (; *attributes != nullptr; attributes += 2)
            if (wanted == attributes[0]) return attributes[1];
        return std::nullopt;
    }

    ExpatReading& reading_;
    std::unique_ptr<XML_ParserStruct, decltype(&XML_ParserFree)> parser_;
    std::size_t depth_ = 0;
    std::size_t cols_ = 0;  // the depth of the first Cols; 0 before it
    bool inside_cols_ = false;
    bool in_column_ = false;
    std::string* value_ = nullptr;  // that text goes to
};

}  // namespace

ExpatReading read_with_expat(std::string_view document) {
    ExpatReading reading;
    Reader(reading).read(document);
    return reading;
}

}  // namespace prot::fuzz
