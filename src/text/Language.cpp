#include "text/Language.h"

#include <algorithm>

namespace text {

namespace {

constexpr Language all[] = {
    {"ar-SA", "Arabic (Saudi Arabia)", 0x401, 1256, "windows-1256"},
    {"eu-ES", "Basque", 0x42D, 1252, "windows-1252"},
    {"be-BY", "Belarusian", 0x423, 1251, "windows-1251"},
    {"bg-BG", "Bulgarian", 0x402, 1251, "windows-1251"},
    {"ca-ES", "Catalan", 0x403, 1252, "windows-1252"},
    {"zh-CN", "Chinese (PRC)", 0x804, 936, "gb2312"},
    {"zh-TW", "Chinese (Taiwan)", 0x404, 950, "big5"},
    {"hr-HR", "Croatian", 0x41A, 1250, "windows-1250"},
    {"cs-CZ", "Czech", 0x405, 1250, "windows-1250"},
    {"da-DK", "Danish", 0x406, 1252, "windows-1252"},
    {"nl-BE", "Dutch (Belgium)", 0x813, 1252, "windows-1252"},
    {"nl-NL", "Dutch (Netherlands)", 0x413, 1252, "windows-1252"},
    {"en-AU", "English (Australia)", 0xC09, 1252, "windows-1252"},
    {"en-CA", "English (Canada)", 0x1009, 1252, "windows-1252"},
    {"en-GB", "English (United Kingdom)", 0x809, 1252, "windows-1252"},
    {"en-US", "English (United States)", 0x409, 1252, "windows-1252"},
    {"et-EE", "Estonian", 0x425, 1257, "windows-1257"},
    {"fi-FI", "Finnish", 0x40B, 1252, "windows-1252"},
    {"fr-BE", "French (Belgium)", 0x80C, 1252, "windows-1252"},
    {"fr-CA", "French (Canada)", 0xC0C, 1252, "windows-1252"},
    {"fr-FR", "French (France)", 0x40C, 1252, "windows-1252"},
    {"fr-CH", "French (Switzerland)", 0x100C, 1252, "windows-1252"},
    {"de-AT", "German (Austria)", 0xC07, 1252, "windows-1252"},
    {"de-DE", "German (Germany)", 0x407, 1252, "windows-1252"},
    {"de-CH", "German (Switzerland)", 0x807, 1252, "windows-1252"},
    {"el-GR", "Greek", 0x408, 1253, "windows-1253"},
    {"he-IL", "Hebrew", 0x40D, 1255, "windows-1255"},
    {"hu-HU", "Hungarian", 0x40E, 1250, "windows-1250"},
    {"is-IS", "Icelandic", 0x40F, 1252, "windows-1252"},
    {"id-ID", "Indonesian", 0x421, 1252, "windows-1252"},
    {"it-IT", "Italian (Italy)", 0x410, 1252, "windows-1252"},
    {"it-CH", "Italian (Switzerland)", 0x810, 1252, "windows-1252"},
    {"ja-JP", "Japanese", 0x411, 932, "shift_jis"},
    {"ko-KR", "Korean", 0x412, 949, "ks_c_5601-1987"},
    {"lv-LV", "Latvian", 0x426, 1257, "windows-1257"},
    {"lt-LT", "Lithuanian", 0x427, 1257, "windows-1257"},
    {"nb-NO", "Norwegian (Bokmal)", 0x414, 1252, "windows-1252"},
    {"nn-NO", "Norwegian (Nynorsk)", 0x814, 1252, "windows-1252"},
    {"pl-PL", "Polish", 0x415, 1250, "windows-1250"},
    {"pt-BR", "Portuguese (Brazil)", 0x416, 1252, "windows-1252"},
    {"pt-PT", "Portuguese (Portugal)", 0x816, 1252, "windows-1252"},
    {"ro-RO", "Romanian", 0x418, 1250, "windows-1250"},
    {"ru-RU", "Russian", 0x419, 1251, "windows-1251"},
    {"sr-Cyrl-RS", "Serbian (Cyrillic)", 0xC1A, 1251, "windows-1251"},
    {"sr-Latn-RS", "Serbian (Latin)", 0x81A, 1250, "windows-1250"},
    {"sk-SK", "Slovak", 0x41B, 1250, "windows-1250"},
    {"sl-SI", "Slovenian", 0x424, 1250, "windows-1250"},
    {"es-MX", "Spanish (Mexico)", 0x80A, 1252, "windows-1252"},
    {"es-ES", "Spanish (Spain)", 0xC0A, 1252, "windows-1252"},
    {"sv-SE", "Swedish", 0x41D, 1252, "windows-1252"},
    {"th-TH", "Thai", 0x41E, 874, "windows-874"},
    {"tr-TR", "Turkish", 0x41F, 1254, "windows-1254"},
    {"uk-UA", "Ukrainian", 0x422, 1251, "windows-1251"},
    {"vi-VN", "Vietnamese", 0x42A, 1258, "windows-1258"},
};

} // namespace

std::span<const Language> languages() {
    return all;
}

const Language* findLanguage(TextView tag) {
    const auto* known = std::find_if(std::begin(all), std::end(all), [tag](const Language& each) {
        return equalIgnoringCase(each.tag, tag);
    });
    return known == std::end(all) ? nullptr : known;
}

const Language& languageOf(TextView tag) {
    const Language* known = findLanguage(tag);
    return known != nullptr
               ? *known
               : *std::find_if(std::begin(all), std::end(all), [](const Language& each) {
                     return TextView(each.tag) == defaultLanguage;
                 });
}

bool isRightToLeft(const Language& language) {
    constexpr TextView leftwards[] = {"ar-", "he-"};
    return std::any_of(std::begin(leftwards), std::end(leftwards), [&](TextView beginning) {
        return TextView(language.tag).starts_with(beginning);
    });
}

} // namespace text
