#pragma once

#include <gtest/gtest.h>

#include "platform/windows/com/bstr.h"
#include "tests/com/client/calls.h"
#include "tests/com/client/host_doubles.h"
#include "tests/com/client/output_folder.h"
#include "tests/com/client/server_dll.h"

namespace prot::test {

/// The thread as clients with a user interface have it.
class Apartment {
public:
    Apartment() { CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED); }
    ~Apartment() { CoUninitialize(); }
    Apartment(const Apartment&) = delete;
    Apartment& operator=(const Apartment&) = delete;
};

/// A freshly loaded server and an empty folder for its files. Each test ends with a server that nothing holds
/// any more and that leaves the process.
class ServerTest : public testing::Test {
protected:
    void TearDown() override {
        EXPECT_EQ(server.can_unload_now(), S_OK) << "The test's objects have left references behind.";
        EXPECT_TRUE(server.unload());
    }

    /// A new object that runs in batch mode.
    ComPtr<_ProtCsvClass> entry() {
        auto made = server.create<_ProtCsvClass>(CLSID_ProtCsvClass);
        EXPECT_EQ(made->put_psCommandline(autostart_.borrow()), S_OK);
        return made;
    }
    ComPtr<_CProtDevCsv> rate_exporter() {
        auto made = server.create<_CProtDevCsv>(CLSID_CProtDevCsv);
        EXPECT_EQ(made->put_psCommandline(autostart_.borrow()), S_OK);
        return made;
    }

    Apartment apartment;
    ServerDll server;
    OutputFolder folder;

private:
    Bstr autostart_{"/autostart"};
};

}  // namespace prot::test
