#include <boost/exception_ptr.hpp>
#include <fl/i18n/ctype.hpp>
#include <fl/i18n/message_catalog.hpp>
#include <gtest/gtest.h>
#include <thread>
#include <unicode/utypes.h>

namespace fl::i18n {
namespace {

template <class Exception>
void expect_exception(Exception const & thrown, int id, std::string const & name, ustring const & text) {
    SCOPED_TRACE(name);
    CtypeExceptionBase const & base = thrown;
    std::string const what = static_cast<std::exception const &>(thrown).what();
    EXPECT_EQ(base.get_excp_id(), id);
    EXPECT_EQ(base.getMsgId(), "fl:i18n:" + name);
    EXPECT_EQ(ustring(what.begin(), what.end()), text);
    EXPECT_EQ(MessageCatalog::get_message(MessageID(base.getMsgId()), QzLocale::classic()), text);
    EXPECT_NE(MessageCatalog::get_message(MessageID(base.getMsgId()), *QzLocale::createLocale("de")), text);
}

TEST(CtypeExceptions, HaveTheirTextsAndIds) {
    expect_exception(CtypeSizeTooLarge(), 0, "CtypeSizeTooLarge", u"Data size too large.");
    expect_exception(CtypeTransformFailure(7), 1, "CtypeTransformFailure", u"Transformation failure.");
    expect_exception(CtypeStrCompFailure(), 2, "CtypeStrCompFailure", u"String comparison failure.");
    expect_exception(CtypeInvalidArgument(), 4, "CtypeInvalidArgument", u"Invalid argument error.");
}

TEST(CtypeExceptions, TravelToAnotherThread) {
    boost::exception_ptr carried;
    std::thread([&] {
        char16_t text[] = u"text";
        try {
            // A buffer that is the source itself is what the conversion library refuses.
            detail::transform(text, 4, text, 4, normalization_form::compose);
        } catch (...) {
            carried = boost::current_exception();
        }
    }).join();
    int code = 0;
    try {
        boost::rethrow_exception(carried);
    } catch (CtypeTransformFailure const & failure) {
        code = failure.getErrorCode();
    }
    EXPECT_EQ(code, U_ILLEGAL_ARGUMENT_ERROR);
    EXPECT_THROW(character_handling_mode_context(32), boost::exception);
    EXPECT_THROW(detail::compare(u"", 0x80000000, u"", 0, {}), boost::exception);
}

} // namespace
} // namespace fl::i18n
