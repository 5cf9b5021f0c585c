#include "tests/com/client/registry.h"
#include "tests/com/client/server_test.h"

namespace prot::test {

namespace {

/// The context of an application with the manifest that lies beside the server.
class ApplicationManifest {
public:
    ApplicationManifest() {
        const std::wstring path = server_path();
        const std::wstring folder = path.substr(0, path.rfind(L'\\'));
        const std::wstring manifest = folder + L"\\anwendung.exe.manifest";
        ACTCTXW context = {};
        context.cbSize = sizeof context;
        context.dwFlags = ACTCTX_FLAG_ASSEMBLY_DIRECTORY_VALID;
        context.lpSource = manifest.c_str();
        context.lpAssemblyDirectory = folder.c_str();
        context_ = CreateActCtxW(&context);
        active_ = context_ != INVALID_HANDLE_VALUE && ActivateActCtx(context_, &cookie_);
    }
    ~ApplicationManifest() {
        if (active_) DeactivateActCtx(0, cookie_);
        if (context_ != INVALID_HANDLE_VALUE) ReleaseActCtx(context_);
    }
    ApplicationManifest(const ApplicationManifest&) = delete;
    ApplicationManifest& operator=(const ApplicationManifest&) = delete;
    bool active() const { return active_; }

private:
    HANDLE context_ = INVALID_HANDLE_VALUE;
    ULONG_PTR cookie_ = 0;
    bool active_ = false;
};

class WithoutRegistration : public ServerTest {
    RegistrationAside aside_;
};

const CLSID class_ids[] = {CLSID_ProtCsvClass, CLSID_CProtDevCsv};
constexpr const wchar_t* programs[] = {L"srvProtQRBCsv.ProtCsvClass", L"srvProtQRBCsv.CProtDevCsv"};

HRESULT create(REFCLSID class_id, ComPtr<IDispatch>& object) {
    void* found = nullptr;
    const HRESULT result = CoCreateInstance(class_id, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch, &found);
    object = ComPtr<IDispatch>::adopt(static_cast<IDispatch*>(found));
    return result;
}

}  // namespace

TEST_F(WithoutRegistration, TheClassesAreUnknownToApplicationsWithoutManifest) {
    for (const CLSID& class_id : class_ids) {
        ComPtr<IDispatch> object;
        EXPECT_EQ(create(class_id, object), REGDB_E_CLASSNOTREG);
    }
}

TEST_F(WithoutRegistration, AnApplicationWithTheManifestCreatesTheClassesAndExports) {
    const ApplicationManifest manifest;
    ASSERT_TRUE(manifest.active());
    // By name the system finds an identifier of its own, which it makes for this context.
    std::vector<CLSID> asked(std::begin(class_ids), std::end(class_ids));
    for (const wchar_t* const program : programs) {
        asked.emplace_back();
        EXPECT_EQ(CLSIDFromProgID(program, &asked.back()), S_OK);
    }
    for (const CLSID& class_id : asked) {
        ComPtr<IDispatch> exporter;
        ASSERT_EQ(create(class_id, exporter), S_OK);
        const Bstr autostart("/autostart");
        EXPECT_EQ(put(*exporter.borrow(), L"psCommandline", text(autostart)).result, S_OK);
        NamedDatabase database;
        const OutputFolder own;
        EXPECT_EQ(export_by_name(*exporter.borrow(), &database).result, S_OK);
        EXPECT_EQ(own.only_file(), sample_file());
    }
    CoFreeUnusedLibrariesEx(0, 0);
}

}  // namespace prot::test
