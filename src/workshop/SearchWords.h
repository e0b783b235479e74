#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace workshop {

/// A word as the full text search keeps it.
struct SearchWord {
    enum class Form {
        folded,      ///< as the system's viewer folds it
        smallFolded, ///< as that folds it in small letters
        natural      ///< in small letters
    };

    std::string_view bytes;     ///< in the code page; for the time of the call
    std::uint32_t position = 0; ///< in the text, counted in words as the system's viewer does
    std::uint32_t end = 0;      ///< the position behind it
    Form form = Form::folded;
};

/// Finds the words of texts in a code page, in the forms in which readers of help look for them:
///
/// - The system's viewer folds each byte to a letter without accent by the table of Western
///   languages, whatever the code page is, and ends words by that table, too. In code pages of two
///   bytes each character of two bytes is a word. As that table knows capitals of Western letters
///   only, a word may be another one in small letters.
/// - Other readers compare the bytes in small letters.
///
/// A word with letters beyond ASCII, with an apostrophe, or with an underline that the table does
/// not take for a letter is given in all forms, others once.
class SearchWords {
public:
    using Take = std::function<void(const SearchWord&)>;

    /// The longest word that is kept, in bytes; longer ones are cut.
    static constexpr std::size_t longest = 99;

    explicit SearchWords(unsigned codePage);

    /// Gives all words of a piece of text, which begins and ends one. `behindTag` tells that a tag
    /// stands in front.
    void read(std::string_view utf8, bool behindTag, const Take& take);

    /// The position of the next word; to be set to 0 where a text begins.
    std::uint32_t position = 0;

    /// Whether there were letters that the code page lacks. Words with them are given in parts, or
    /// with a similar letter in their place.
    bool hasLost = false;

private:
    struct Form {
        std::array<char, 4> bytes{};
        std::uint8_t size = 0;
        void append(unsigned byte);
        std::string_view view() const { return {bytes.data(), size}; }
    };

    enum class Part : std::uint8_t { none, letter, digit, comma, point, apostrophe, word };

    /// What a character is, in both ways of reading.
    struct Character {
        bool isKnown = false;
        bool isLetter = false;  ///< of natural words
        bool isSpecial = false; ///< beyond ASCII, or not one of folded words
        bool isLost = false;    ///< a letter that the code page lacks
        Part part = Part::none; ///< of folded words
        char32_t small = 0;     ///< itself as a small letter
        Form folded;
        Form natural;
    };
    using Plane = std::array<Character, 256>;

    Character described(char32_t character) const;
    void describeFolded(Character& known, std::string_view bytes) const;
    const Character& known(char32_t character);
    const Character& taken(std::string_view& utf8, char32_t& character);

    const char* readPlain(const char* at, const char* end);
    void readFolded(const Character& character, const Take& take);
    void endFolded(const Take& take);
    void beginNatural(const char* at);
    void readNatural(const Character& character, char32_t unicode, const char* at,
                     std::string_view rest, const Take& take);
    void endNatural(const char* end, const Take& take);
    void takeNatural(std::string_view word, const Take& take);
    void takeSmallFolded(std::string_view word, const Take& take);

    unsigned codePage_;
    bool isDoubleByte_;
    std::array<char, 256> plain_{};                  ///< folded letters of ASCII; 0 for others
    std::array<std::unique_ptr<Plane>, 256> planes_; ///< of the characters up to U+FFFF
    Character other_;

    std::string folded_;
    bool isNumber_ = false;
    std::string naturalWord_;
    const char* naturalStart_ = nullptr; ///< null outside of a word
    std::uint32_t naturalPosition_ = 0;
    bool isSpecial_ = false; ///< has a natural form that differs
    bool isLost_ = false;
};

} // namespace workshop
