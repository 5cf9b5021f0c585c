#include "core/change_document.h"

#include <charconv>

#include "core/ProtQRBCsvBas.h"

namespace prot {

ChangeDocument::Loaded ChangeDocument::load(std::string_view dmData) {
    columns_ = 0;
    if (dmData.empty()) return Loaded::empty;
    if (!oXML_) oXML_ = create_change_document_reader(environment_);
    if (!oXML_->load(dmData)) return Loaded::unreadable;
    columns_ = oXML_->count("//Cols");
    return Loaded::yes;
}

std::string_view ChangeDocument::select(std::int32_t index) {
    char digits[12] = {};
    std::to_chars(digits, digits + sizeof digits - 1, index);
    path_.assign("//Cols/Col[").append(digits).append("]/");
    prefix_size_ = path_.size();
    name_ = value("attribute(\"Name\")");
    return name_;
}

std::string_view ChangeDocument::value(std::string_view step) {
    path_.resize(prefix_size_);
    path_ += step;
    return gsXMLGetValue(*oXML_, path_);
}

}  // namespace prot
