#include "platform/Automation.h"

#include <array>
#include <gtest/gtest.h>
#include <map>
#include <windows.h>

using platform::AutomationObject;
using platform::AutomationValue;

namespace {

constexpr GUID programId{
    0x6A2D0C51, 0x7B3E, 0x4C19, {0x9E, 0x40, 0x5D, 0x11, 0x8A, 0xF2, 0x63, 0x07}};

/// What the parts of a COM object share. It lives as long as the test, whoever counts.
template <typename Interface>
class Counted : public Interface {
public:
    ULONG references = 1;

    STDMETHODIMP_(ULONG) AddRef() override { return ++references; }
    STDMETHODIMP_(ULONG) Release() override { return --references; }
    STDMETHODIMP QueryInterface(REFIID wanted, void** object) override {
        const bool known = wanted == IID_IUnknown || wanted == __uuidof(Interface);
        *object = known ? this : nullptr;
        return known ? (AddRef(), S_OK) : E_NOINTERFACE;
    }
};

/// Another program: it knows its members under these numbers, and keeps what is put into one.
class Program : public Counted<IDispatch> {
public:
    enum Member { visible = 1, top, documents, quit, refusing };
    std::map<DISPID, VARIANT> values;
    WORD lastKind = 0;

    STDMETHODIMP GetTypeInfoCount(UINT* count) override {
        *count = 0;
        return S_OK;
    }
    STDMETHODIMP GetTypeInfo(UINT /*index*/, LCID /*language*/, ITypeInfo** /*info*/) override {
        return E_NOTIMPL;
    }
    STDMETHODIMP GetIDsOfNames(REFIID /*reserved*/, LPOLESTR* names, UINT /*count*/,
                               LCID /*language*/, DISPID* ids) override {
        const std::map<std::wstring, DISPID> members{{L"Visible", visible},
                                                     {L"Top", top},
                                                     {L"Documents", documents},
                                                     {L"Quit", quit},
                                                     {L"Refusing", refusing}};
        const auto found = members.find(names[0]);
        *ids = found == members.end() ? DISPID_UNKNOWN : found->second;
        return found == members.end() ? DISP_E_UNKNOWNNAME : S_OK;
    }
    STDMETHODIMP Invoke(DISPID member, REFIID /*reserved*/, LCID /*language*/, WORD kind,
                        DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* /*exception*/,
                        UINT* /*argument*/) override {
        lastKind = kind;
        if (member == refusing) {
            return RPC_E_CALL_REJECTED;
        }
        if (kind == DISPATCH_PROPERTYPUT) {
            const bool isNamed = parameters->cArgs == 1 && parameters->cNamedArgs == 1
                                 && parameters->rgdispidNamedArgs[0] == DISPID_PROPERTYPUT;
            return isNamed ? VariantCopy(&values[member], &parameters->rgvarg[0]) : E_INVALIDARG;
        }
        const auto found = values.find(member);
        return found == values.end() ? S_OK : VariantCopy(result, &found->second);
    }
};

class Factory : public Counted<IClassFactory> {
public:
    explicit Factory(Program& program) : program_(program) {}

    STDMETHODIMP CreateInstance(IUnknown* /*outer*/, REFIID wanted, void** object) override {
        return program_.QueryInterface(wanted, object);
    }
    STDMETHODIMP LockServer(BOOL /*lock*/) override { return S_OK; }

private:
    Program& program_;
};

/// A program that is installed while the test runs.
class Automation : public testing::Test {
protected:
    void SetUp() override {
        std::array<wchar_t, 39> id{};
        StringFromGUID2(programId, id.data(), id.size());
        for (const HKEY root : roots) {
            RegSetKeyValueW(root, (key + L"\\CLSID").c_str(), nullptr, REG_SZ, id.data(),
                            sizeof id);
        }
        ASSERT_GE(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED), S_OK);
        ASSERT_EQ(CoRegisterClassObject(programId, &factory_, CLSCTX_LOCAL_SERVER,
                                        REGCLS_MULTI_SEPARATE, &registration_),
                  S_OK);
    }
    void TearDown() override {
        CoRevokeClassObject(registration_);
        for (const HKEY root : roots) {
            RegDeleteTreeW(root, key.c_str());
        }
    }

    Program program;

private:
    /// Some systems look only into the first, which not everybody may change.
    const std::array<HKEY, 2> roots{HKEY_LOCAL_MACHINE, HKEY_CURRENT_USER};
    const std::wstring key = LR"(Software\Classes\Topicsmith.AutomationTest)";
    Factory factory_{program};
    DWORD registration_ = 0;
};

} // namespace

TEST_F(Automation, DrivesAnotherProgramByTheNamesOfItsMembers) {
    auto object = platform::createAutomation("Topicsmith.AutomationTest");
    ASSERT_NE(object, nullptr);

    EXPECT_TRUE(object->set("Visible", true));
    EXPECT_EQ(program.values[Program::visible].boolVal, VARIANT_TRUE);
    EXPECT_EQ(object->get("Visible"), AutomationValue(true));
    EXPECT_EQ(program.lastKind, DISPATCH_PROPERTYGET);

    EXPECT_TRUE(object->set("Top", -3000));
    EXPECT_EQ(program.values[Program::top].lVal, -3000);
    VARIANT& top = program.values[Program::top];
    top.vt = VT_R4;
    top.fltVal = 119.8F;
    EXPECT_EQ(object->get("Top"), AutomationValue(120));

    EXPECT_EQ(object->call("Quit"), AutomationValue());
    EXPECT_EQ(program.lastKind, DISPATCH_METHOD);

    EXPECT_EQ(object->get("Missing"), std::nullopt);
    EXPECT_FALSE(object->set("Missing", 1));
    EXPECT_EQ(object->call("Refusing"), std::nullopt);
    EXPECT_EQ(platform::createAutomation("Topicsmith.NobodyHasInstalledThis"), nullptr);
}

TEST_F(Automation, GivesBackEveryObjectThatItWasGiven) {
    Program child;
    VARIANT& documents = program.values[Program::documents];
    documents.vt = VT_DISPATCH;
    documents.pdispVal = &child;
    {
        const auto object = platform::createAutomation("Topicsmith.AutomationTest");
        ASSERT_NE(object, nullptr);
        const auto value = object->get("Documents");
        ASSERT_TRUE(value);
        const auto* inner = std::get_if<std::shared_ptr<AutomationObject>>(&*value);
        ASSERT_NE(inner, nullptr);
        EXPECT_TRUE((*inner)->set("Top", 7));
        EXPECT_EQ(child.values[Program::top].lVal, 7);
        EXPECT_GT(child.references, 1U);
    }
    EXPECT_EQ(child.references, 1U);
    EXPECT_EQ(program.references, 1U);
}
