#include "platform/registry/UpperCase.h"

#include "profiles/RegistryStore.h"

#include <clocale>
#include <cwctype>
#include <memory>
#include <type_traits>

namespace {

// A locale that knows the case of all of Unicode, whatever the user's locale is.
class UnicodeLocale {
public:
    UnicodeLocale() : locale_(newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr)) {
        if (!locale_)
            throw RegistryError(RegistryErrorNumber::Unknown,
                                "The locale C.UTF-8 is missing on this system; install it to use names with letters "
                                "beyond ASCII.");
    }

    [[nodiscard]] char32_t Upper(char32_t codePoint) const {
        return static_cast<char32_t>(towupper_l(static_cast<wint_t>(codePoint), locale_.get()));
    }

private:
    struct Free {
        void operator()(locale_t locale) const { freelocale(locale); }
    };
    std::unique_ptr<std::remove_pointer_t<locale_t>, Free> locale_;
};

} // namespace

char32_t UpperCase(char32_t codePoint) {
    static const UnicodeLocale unicode;
    return unicode.Upper(codePoint);
}
