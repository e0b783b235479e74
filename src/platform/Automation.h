#pragma once

#include <memory>
#include <optional>
#include <variant>

namespace platform {

class AutomationObject;

/// What a member of another program's object takes and gives: nothing, a switch, a number, or
/// another object.
using AutomationValue = std::variant<std::monostate, bool, int, std::shared_ptr<AutomationObject>>;

/// An object of another program, driven by the names of its members. Every operation can fail, as
/// the other program may end or refuse at any moment; then it gives nothing, or false.
class AutomationObject {
public:
    AutomationObject() = default;
    virtual ~AutomationObject() = default;
    AutomationObject(const AutomationObject&) = delete;
    AutomationObject& operator=(const AutomationObject&) = delete;

    virtual std::optional<AutomationValue> get(const char* property) = 0;
    virtual bool set(const char* property, const AutomationValue& value) = 0;
    virtual std::optional<AutomationValue> call(const char* method) = 0;
};

/// Starts a program by the name of its automation server, such as "Word.Application". Null when it
/// is not installed or does not start, and always on systems without such servers.
std::shared_ptr<AutomationObject> createAutomation(const char* server);

} // namespace platform
