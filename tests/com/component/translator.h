#pragma once

#include "tests/com/component/script_object.h"

namespace prottest {

/// What a stand-in for a translation object tells of itself (translators.idl).
enum class Described { by_interface, by_another_first_member, by_dispinterface, not_at_all };

/// Translates values into texts that tell what was asked, of which database, and by which member. 0 has no
/// text. That an object is made and released goes into the report.
class Translator : public ScriptObject<Translator> {
public:
    explicit Translator(Described described);
    ~Translator() override;

    /// By name there is gsTranslate alone.
    static std::span<const Member> members();

    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID, ITypeInfo** type) override;
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID iid, LCID language, WORD flags, DISPPARAMS* parameters,
                                     VARIANT* result, EXCEPINFO* exception, UINT* argument) override;

private:
    const Described described_;
};

template <Described described>
class DescribedTranslator : public Translator {
public:
    DescribedTranslator() : Translator(described) {}
};

}  // namespace prottest
