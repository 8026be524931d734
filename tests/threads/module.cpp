// A shared library that uses this library: where it initialises itself, when it is called, and where it is
// freed.
#include <cstdlib>
#include <fl/i18n/codecvt.hpp>
#include <fl/i18n/locale.hpp>
#include <fl/i18n/locale_status.hpp>
#include <fl/i18n/message_catalog.hpp>
#include <string>

#ifdef _WIN32
#define FL_TEST_EXPORT extern "C" __declspec(dllexport)
#else
#define FL_TEST_EXPORT extern "C" __attribute__((visibility("default")))
#endif

namespace {

using namespace fl::i18n;

bool answers() {
    codecvt_ustring_to_string to_ascii(call_back_stop, "US-ASCII", "");
    return MessageCatalog::get_message(MessageID(std::string("fl:i18n:QzLcInvLcArgument")),
                                       QzLocale::classic()) == u"Invalid argument." &&
           to_ascii.convert(u"b") == "b";
}

struct lifetime {
    lifetime()
        : started_before(QzLcUtil::getLcStatus() != LcStatusNotInitialized)
        , answered(answers()) {}
    ~lifetime() {
        if (!answers()) {
            std::_Exit(3);
        }
    }
    bool started_before;
    bool answered;
};

lifetime const own;
int calls = 0;

} // namespace

/// Returns how often it was called since the module was loaded, 0 for a wrong answer.
FL_TEST_EXPORT int uses_library() {
    return own.answered && answers() ? ++calls : 0;
}

/// Tells whether the library had been used before this module was loaded.
FL_TEST_EXPORT int found_library_in_use() {
    return own.started_before;
}
