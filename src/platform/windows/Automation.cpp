#include "platform/Automation.h"

#include <windows.h>

// Objects of other programs through COM's late binding.
namespace platform {

namespace {

std::wstring wide(const char* ascii) {
    return {ascii, ascii + std::char_traits<char>::length(ascii)};
}

/// A variant that frees what it holds.
class Variant {
public:
    Variant() { VariantInit(&value_); }
    ~Variant() { VariantClear(&value_); }
    Variant(const Variant&) = delete;
    Variant& operator=(const Variant&) = delete;

    VARIANT& raw() { return value_; }

    void assign(const AutomationValue& value);
    std::optional<AutomationValue> value() const;

private:
    VARIANT value_;
};

class ComObject : public AutomationObject {
public:
    /// Takes over the caller's reference.
    explicit ComObject(IDispatch* object) : object_(object) {}
    ~ComObject() override { object_->Release(); }

    IDispatch& dispatch() const { return *object_; }

    std::optional<AutomationValue> get(const char* property) override {
        return invoke(property, DISPATCH_PROPERTYGET, nullptr);
    }

    bool set(const char* property, const AutomationValue& value) override {
        return invoke(property, DISPATCH_PROPERTYPUT, &value).has_value();
    }

    std::optional<AutomationValue> call(const char* method) override {
        return invoke(method, DISPATCH_METHOD, nullptr);
    }

private:
    std::optional<AutomationValue> invoke(const char* member, WORD kind,
                                          const AutomationValue* argument) {
        std::wstring name = wide(member);
        LPOLESTR names = name.data();
        DISPID id = 0;
        if (FAILED(object_->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &id))) {
            return {};
        }
        Variant passed;
        DISPID put = DISPID_PROPERTYPUT;
        DISPPARAMS parameters{nullptr, nullptr, 0, 0};
        if (argument != nullptr) {
            passed.assign(*argument);
            parameters = {&passed.raw(), &put, 1, 1};
        }
        Variant result;
        if (FAILED(object_->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, kind, &parameters,
                                   &result.raw(), nullptr, nullptr))) {
            return {};
        }
        return result.value();
    }

    IDispatch* object_;
};

void Variant::assign(const AutomationValue& value) {
    if (const bool* flag = std::get_if<bool>(&value)) {
        value_.vt = VT_BOOL;
        value_.boolVal = *flag ? VARIANT_TRUE : VARIANT_FALSE;
    } else if (const int* number = std::get_if<int>(&value)) {
        value_.vt = VT_I4;
        value_.lVal = *number;
    } else if (const auto* object = std::get_if<std::shared_ptr<AutomationObject>>(&value)) {
        value_.vt = VT_DISPATCH;
        value_.pdispVal = &static_cast<const ComObject&>(**object).dispatch();
        value_.pdispVal->AddRef();
    }
}

/// Numbers of every kind become whole ones; what has no counterpart becomes nothing at all.
std::optional<AutomationValue> Variant::value() const {
    switch (value_.vt) {
    case VT_DISPATCH:
        if (value_.pdispVal == nullptr) {
            return {};
        }
        value_.pdispVal->AddRef();
        return std::shared_ptr<AutomationObject>(std::make_shared<ComObject>(value_.pdispVal));
    case VT_BOOL:
        return value_.boolVal != VARIANT_FALSE;
    case VT_I2:
    case VT_I4:
    case VT_R4:
    case VT_R8: {
        Variant number;
        VARIANT source = value_; // not freed: this only looks
        if (FAILED(VariantChangeType(&number.raw(), &source, 0, VT_I4))) {
            return {};
        }
        return static_cast<int>(number.value_.lVal);
    }
    default:
        return AutomationValue();
    }
}

} // namespace

std::shared_ptr<AutomationObject> createAutomation(const char* server) {
    CLSID id;
    IDispatch* object = nullptr;
    // The toolkit has made COM ready for this thread; being ready twice does no harm.
    if (FAILED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))
        || FAILED(CLSIDFromProgID(wide(server).c_str(), &id))
        || FAILED(CoCreateInstance(id, nullptr, CLSCTX_LOCAL_SERVER, IID_IDispatch,
                                   reinterpret_cast<void**>(&object)))) {
        return nullptr;
    }
    return std::make_shared<ComObject>(object);
}

} // namespace platform
