#include "platform/windows/host/suite_components.h"

#include <objbase.h>

#include <optional>
#include <utility>

#include "platform/automation/error.h"
#include "platform/automation/text_forms.h"
#include "platform/windows/com/automation_values.h"
#include "platform/windows/com/bstr.h"
#include "platform/windows/com/com_error.h"
#include "platform/windows/com/com_ptr.h"
#include "platform/windows/com/late_bound_object.h"
#include "platform/windows/com/own_member.h"
#include "platform/windows/host/show_help_member.h"
#include "platform/windows/text/wide_text.h"

namespace prot {

namespace {

constexpr std::string_view error_class = "srvZQ.ZQErrorClass";

/// Component cannot create object.
constexpr auto error_not_created = static_cast<std::int32_t>(0x800A01AD);

HRESULT create(std::string_view program_id, ComPtr<IDispatch>& object) {
    CLSID class_id = {};
    HRESULT result = CLSIDFromProgID(to_wide(program_id).c_str(), &class_id);
    if (FAILED(result)) return result;
    result = CoCreateInstance(class_id, nullptr, CLSCTX_INPROC_SERVER | CLSCTX_LOCAL_SERVER, IID_IDispatch,
                              reinterpret_cast<void**>(object.receive()));
    return SUCCEEDED(result) && !object ? E_NOINTERFACE : result;
}

/// A new object of the class; one that cannot be created is an error that names it and says why.
ComPtr<IDispatch> create_component(std::string_view program_id) {
    ComPtr<IDispatch> object;
    const HRESULT result = create(program_id, object);
    if (FAILED(result))
        throw AutomationError(error_not_created, std::string(),
                              "Die Komponente " + std::string(program_id) +
                                  " lässt sich nicht erstellen: " + system_text(result));
    return object;
}

class SuiteErrorDisplay : public ErrorDisplay {
public:
    void ZQ_gShowError(std::int32_t lNummer, std::string_view sQuelle,
                       std::string_view sBeschreibung) override {
        long number = lNummer;
        Bstr source(sQuelle), description(sBeschreibung);
        // By reference, as the component wants it: it may replace the texts, which then are freed here.
        BSTR source_text = source.release(), description_text = description.release();
        struct Owner {
            BSTR& text;
            ~Owner() { SysFreeString(text); }
        } const owners[] = {{source_text}, {description_text}};
        display_.call("ZQ_gShowError",
                      {reference(number), reference(source_text), reference(description_text)});
    }

private:
    LateBoundObject display_{create_component(error_class), std::string(error_class)};
};

class SuiteHelpDisplay : public HelpDisplay {
public:
    bool show_topic(std::string_view map_file, std::string_view help_id) override {
        return show_help(component_, map_file, help_id);
    }

private:
    ComPtr<IDispatch> component_ = create_component(help_class);
};

/// How a translation object is called: by the id of its own first member, or by name.
std::optional<DescribedMember> translate_member(const ComPtr<IDispatch>& object) {
    constexpr std::size_t given = 4;
    std::optional<DescribedMember> first = first_own_member(object);
    if (!first) return std::nullopt;
    auto& parameters = first->parameters;
    const bool result_behind = parameters.size() == given + 1 && parameters.back().is_result;
    const VARTYPE answer = result_behind ? parameters.back().type : first->answer;
    if ((result_behind || parameters.size() == given) && answer == VT_BSTR) return first;
    return std::nullopt;
}

class SuiteValueTranslator : public ValueTranslator {
public:
    SuiteValueTranslator(const ComPtr<IDispatch>& object, std::string_view program_id,
                         ComPtr<IDispatch> database)
        : object_(object, std::string(program_id)),
          member_(translate_member(object)),
          database_(std::move(database)) {}

    std::string translate(std::int32_t value, std::string_view column, Date moment) override {
        const Bstr name(column);
        const std::initializer_list<VARIANT> arguments = {argument(long{value}), argument(name.borrow()),
                                                          argument(moment.serial),
                                                          argument(database_.borrow())};
        const Variant answer = member_ ? object_.call(member_->id, member_->name, arguments)
                                       : object_.call(known_name, arguments);
        return to_text(to_value(answer.borrow(), member_ ? member_->name : known_name));
    }

private:
    static constexpr std::string_view known_name = "gsTranslate";

    LateBoundObject object_;
    std::optional<DescribedMember> member_;
    ComPtr<IDispatch> database_;
};

}  // namespace

bool is_registered(std::string_view program_id) {
    CLSID class_id = {};
    return SUCCEEDED(CLSIDFromProgID(to_wide(program_id).c_str(), &class_id));
}

std::unique_ptr<ErrorDisplay> suite_error_display() { return std::make_unique<SuiteErrorDisplay>(); }
std::unique_ptr<HelpDisplay> suite_help_display() { return std::make_unique<SuiteHelpDisplay>(); }

std::unique_ptr<ValueTranslator> suite_value_translator(std::string_view program_id,
                                                        ComPtr<IDispatch> database) {
    ComPtr<IDispatch> object;
    if (FAILED(create(program_id, object))) return nullptr;
    return std::make_unique<SuiteValueTranslator>(object, program_id, std::move(database));
}

}  // namespace prot
