#include "platform/windows/com/late_bound_object.h"

#include <algorithm>
#include <array>
#include <cassert>

#include "platform/automation/error.h"
#include "platform/windows/com/bstr.h"
#include "platform/windows/com/com_error.h"

namespace prot {

namespace {

constexpr std::size_t most_arguments = 8;
constexpr std::int32_t error_arguments = static_cast<std::int32_t>(0x800A01C2);

/// Answers that tell that there is no such member; everything else is a failure of the object.
constexpr HRESULT unknown_member[] = {DISP_E_UNKNOWNNAME, DISP_E_MEMBERNOTFOUND, TYPE_E_ELEMENTNOTFOUND,
                                      E_NOTIMPL};

/// Failures of a call whose number at the border says less than that of the run-time error it is.
constexpr struct {
    HRESULT result;
    std::int32_t number;
    std::string_view text;
} call_failures[] = {
    {DISP_E_UNKNOWNNAME, error_member_unknown, "Das Objekt hat keine solche Methode."},
    {DISP_E_MEMBERNOTFOUND, error_member_unknown, "Das Objekt hat keine solche Methode."},
    {DISP_E_BADPARAMCOUNT, error_arguments, "Falsche Anzahl von Argumenten."},
    {DISP_E_TYPEMISMATCH, static_cast<std::int32_t>(ErrorNumber::type_mismatch), "Typen unverträglich."},
};

bool names_argument(HRESULT result) {
    return result == DISP_E_TYPEMISMATCH || result == DISP_E_PARAMNOTFOUND;
}

VARIANT variant_of(VARTYPE type) noexcept {
    VARIANT variant;
    VariantInit(&variant);
    variant.vt = type;
    return variant;
}

}  // namespace

LateBoundObject::LateBoundObject(ComPtr<IDispatch> object, std::string name)
    : object_(std::move(object)), extended_(object_.query<IDispatchEx>()), name_(std::move(name)) {}

bool LateBoundObject::has(std::string_view member) { return find(member) != nullptr; }

Variant LateBoundObject::call(std::string_view member, std::initializer_list<VARIANT> arguments) {
    const Member* const found = find(member);
    if (!found)
        throw AutomationError(error_member_unknown, std::string(),
                              "Das Objekt " + name_ + " hat keine Methode " + std::string(member) + ".");
    return call(found->id, member, arguments);
}

Variant LateBoundObject::call(DISPID id, std::string_view member, std::initializer_list<VARIANT> arguments) {
    assert(arguments.size() <= most_arguments);
    std::array<VARIANT, most_arguments> reversed;
    std::reverse_copy(arguments.begin(), arguments.end(), reversed.begin());
    DISPPARAMS parameters{reversed.data(), nullptr, static_cast<UINT>(arguments.size()), 0};

    Variant answer;
    Failure failure;
    HRESULT result = invoke(id, DISPATCH_METHOD, parameters, answer.receive(), failure);
    // Script engines refuse the combination, so it comes second.
    if (result == DISP_E_MEMBERNOTFOUND)
        result = invoke(id, DISPATCH_METHOD | DISPATCH_PROPERTYGET, parameters, answer.receive(), failure);
    if (FAILED(result)) throw error_of(result, member, parameters, failure);
    return answer;
}

const LateBoundObject::Member* LateBoundObject::find(std::string_view name) {
    const auto known = std::ranges::find(members_, name, &Member::name);
    if (known != members_.end()) return &*known;
    std::string asked(name);
    const DISPID id = ask_id(asked);
    if (id == DISPID_UNKNOWN) return nullptr;
    members_.push_back({std::move(asked), id});
    return &members_.back();
}

DISPID LateBoundObject::ask_id(const std::string& name) {
    const Bstr text(name);
    for (const DWORD letters : {DWORD{fdexNameCaseSensitive}, DWORD{fdexNameCaseInsensitive}}) {
        if (!extended_) break;
        DISPID id = DISPID_UNKNOWN;
        const HRESULT result = extended_->GetDispID(text.borrow(), letters, &id);
        if (SUCCEEDED(result)) return id;
        if (result == E_NOTIMPL && letters == fdexNameCaseSensitive) extended_ = {};
    }
    return ask_id_by_name_service(text.borrow());
}

DISPID LateBoundObject::ask_id_by_name_service(BSTR name) {
    DISPID id = DISPID_UNKNOWN;
    const HRESULT result = object_->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &id);
    if (SUCCEEDED(result)) return id;
    if (std::ranges::find(unknown_member, result) != std::end(unknown_member)) return DISPID_UNKNOWN;
    throw AutomationError(result, std::string(), name_ + "." + text_of(name) + ": " + system_text(result));
}

HRESULT LateBoundObject::invoke(DISPID id, WORD flags, DISPPARAMS& parameters, VARIANT* answer,
                                Failure& failure) {
    if (const ComPtr<IDispatchEx> extended = extended_) {
        const HRESULT result = extended->InvokeEx(id, LOCALE_USER_DEFAULT, flags, &parameters, answer,
                                                  &failure.exception, nullptr);
        if (result != E_NOTIMPL) return result;
    }
    return object_->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters, answer, &failure.exception,
                           &failure.argument);
}

AutomationError LateBoundObject::error_of(HRESULT result, std::string_view member,
                                          const DISPPARAMS& parameters, Failure& failure) const {
    AutomationError error = error_of_invoke(result, failure.exception);
    if (result == DISP_E_EXCEPTION) return error;
    const auto row =
        std::ranges::find(call_failures, result, [](const auto& candidate) { return candidate.result; });
    const bool known = row != std::end(call_failures);
    std::string text = name_ + "." + std::string(member);
    if (names_argument(result) && failure.argument < parameters.cArgs)
        text += ", Argument " + std::to_string(parameters.cArgs - failure.argument);
    text.append(": ").append(known ? row->text : error.description());
    return AutomationError(known ? row->number : result, std::string(), std::move(text));
}

VARIANT argument(long number) noexcept {
    VARIANT variant = variant_of(VT_I4);
    variant.lVal = number;
    return variant;
}

VARIANT argument(BSTR text) noexcept {
    VARIANT variant = variant_of(VT_BSTR);
    variant.bstrVal = text;
    return variant;
}

VARIANT argument(DATE date) noexcept {
    VARIANT variant = variant_of(VT_DATE);
    variant.date = date;
    return variant;
}

VARIANT argument(IDispatch* object) noexcept {
    VARIANT variant = variant_of(VT_DISPATCH);
    variant.pdispVal = object;
    return variant;
}

VARIANT reference(long& number) noexcept {
    VARIANT variant = variant_of(VT_BYREF | VT_I4);
    variant.plVal = &number;
    return variant;
}

VARIANT reference(BSTR& text) noexcept {
    VARIANT variant = variant_of(VT_BYREF | VT_BSTR);
    variant.pbstrVal = &text;
    return variant;
}

VARIANT reference(VARIANT& variant) noexcept {
    VARIANT result = variant_of(VT_BYREF | VT_VARIANT);
    result.pvarVal = &variant;
    return result;
}

}  // namespace prot
