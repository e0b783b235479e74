#pragma once

#include <functional>

#include "platform/Automation.h"
#include "tools/SpellChecker.h"

namespace tools {

/// The clipboard's text, by which texts go to the word processor and come back.
class TextClipboard {
public:
    virtual ~TextClipboard() = default;
    virtual void clear() = 0;
    virtual void setText(TextView text) = 0;
    virtual Text text() const = 0;
};

/// Checks texts in the word processor's own spelling dialog, in one new document that is out of
/// sight.
class WordProcessor : public SpellChecker {
public:
    using CreateAutomation =
        std::function<std::shared_ptr<platform::AutomationObject>(const char* server)>;

    /// Null when there is no word processor.
    static std::unique_ptr<WordProcessor> start(const CreateAutomation& create,
                                                std::unique_ptr<TextClipboard> clipboard);

    /// Ends the word processor where finish() has not.
    ~WordProcessor() override;

    Outcome check(Text& text, TextView place) override;
    bool finish() override;

private:
    using Object = std::shared_ptr<platform::AutomationObject>;

    WordProcessor(Object application, std::unique_ptr<TextClipboard> clipboard);
    bool prepare();
    bool callContent(const char* method);

    Object application_;                           ///< null once it has ended
    Object document_;                              ///< null as long as there is none
    std::optional<platform::AutomationValue> top_; ///< where its window was
    std::unique_ptr<TextClipboard> clipboard_;
    bool prepared_ = false;
};

} // namespace tools
