#include "core/change_document.h"

#include "core/ProtQRBCsvBas.h"

namespace prot {

ChangeDocument::Loaded ChangeDocument::load(std::string_view dmData) {
    columns_ = 0;
    if (dmData.empty()) return Loaded::empty;
    if (!oXML) oXML = create_change_document_reader(environment_);
    if (!oXML->load(dmData)) return Loaded::unreadable;
    columns_ = oXML->columns();
    return Loaded::yes;
}

std::string_view ChangeDocument::select(std::int32_t index) {
    selected_ = index;
    name_ = value(ColumnPart::name);
    return name_;
}

std::string_view ChangeDocument::value(ColumnPart part) { return gsXMLGetValue(*oXML, selected_, part); }

}  // namespace prot
