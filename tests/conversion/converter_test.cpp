#include <algorithm>
#include <boost/exception_ptr.hpp>
#include <fl/i18n/codecvt.hpp>
#include <fl/i18n/ustring.hpp>
#include <gtest/gtest.h>
#include <thread>

namespace fl::i18n {
namespace {

/// A converter of the caller's own: doubles every byte and announces a length of its choice.
class doubler : public converter<char16_t, char> {
public:
    explicit doubler(std::size_t announced = 0)
        : announced_(announced) {}
    mutable int calls = 0;

protected:
    std::size_t do_get_destination_size(char const *, std::size_t length) const override {
        ++calls;
        return announced_ != 0 ? announced_ : 2 * length;
    }
    std::size_t do_convert(char16_t * destination, std::size_t room, char const * source,
                           std::size_t length) const override {
        ++calls;
        for (std::size_t i = 0; i < std::min(room, 2 * length); ++i) {
            destination[i] = static_cast<char16_t>(source[i / 2]);
        }
        return 2 * length;
    }
    ustring do_convert(char const * source, std::size_t length) override {
        ustring result(2 * length, u'\0');
        static_cast<doubler const *>(this)->do_convert(result.data(), result.size(), source, length);
        return result;
    }

private:
    std::size_t announced_;
};

TEST(Converter, ForwardsToTheDerivedClass) {
    doubler d;
    converter<char16_t, char> & c = d;
    char16_t buffer[4] = {};
    EXPECT_EQ(c.convert("ab"), u"aabb");
    EXPECT_EQ(c.convert("abc", 2), u"aabb");
    EXPECT_EQ(c.get_destination_size(std::string("ab")), 4u);
    EXPECT_EQ(c.convert(buffer, 3, std::string("ab")), 4u);
    EXPECT_EQ(std::u16string_view(buffer, 4), std::u16string_view(u"aab\0", 4));
    EXPECT_NE(dynamic_cast<doubler *>(&c), nullptr);
}

TEST(Converter, HandlesEmptyArgumentsItself) {
    doubler d;
    char16_t buffer[] = {u'#'};
    EXPECT_EQ(d.convert(nullptr, 5), u"");
    EXPECT_EQ(d.convert("x", 0), u"");
    EXPECT_EQ(d.convert(std::string()), u"");
    EXPECT_EQ(d.convert(buffer, 0, "abc", 3), 0u);
    EXPECT_EQ(d.convert(nullptr, 1, "abc", 3), 0u);
    EXPECT_EQ(d.convert(buffer, 1, nullptr, 3), 0u);
    EXPECT_EQ(d.convert(buffer, 1, std::string()), 0u);
    EXPECT_EQ(d.get_destination_size("x", 0), 0u);
    EXPECT_EQ(d.get_destination_size(nullptr, 5), 0u);
    EXPECT_EQ(d.calls, 0);
    EXPECT_EQ(buffer[0], u'#');
}

TEST(Converter, IsHeldToWhatItAnnounces) {
    EXPECT_EQ(to_ustring("ab", doubler()), u"aabb");
    EXPECT_EQ(to_ustring("ab", doubler(9)), u"aabb");
    EXPECT_THROW(to_ustring("ab", doubler(3)), CvtConversionFailure);
}

/// Copies bytes and remembers that it was flushed.
class byte_stream : public stream_converter<char, char> {
public:
    mutable bool flushed = false;

protected:
    std::size_t do_convert(char ** destination, char * destination_end, char const ** source,
                           char const * source_end, bool flush) const override {
        flushed = flush;
        std::size_t count = 0;
        for (; *destination != destination_end && *source != source_end; ++count) {
            *(*destination)++ = *(*source)++;
        }
        return count;
    }
    void do_reset_state() const override { flushed = false; }
    std::size_t do_max_char_size() const override { return 7; }
};

TEST(StreamConverter, ForwardsToTheDerivedClass) {
    byte_stream const b;
    stream_converter<char, char> const & c = b;
    char buffer[2];
    char * to = buffer;
    char const * const text = "abc";
    char const * from = text;
    EXPECT_EQ(c.convert(&to, buffer + 2, &from, text + 3, true), 2u);
    EXPECT_EQ(to, buffer + 2);
    EXPECT_EQ(from, text + 2);
    EXPECT_TRUE(b.flushed);
    c.reset_state();
    EXPECT_FALSE(b.flushed);
    EXPECT_EQ(c.max_char_size(), 7u);
}

template <class Exception>
void expect_exception(Exception thrown, int id, std::string const & text) {
    SCOPED_TRACE(text);
    Exception copy = thrown;
    copy = thrown;
    CvtExceptionBase const & base = copy;
    EXPECT_EQ(base.get_excp_id(), id);
    EXPECT_EQ(text, static_cast<std::exception const &>(base).what());
}

TEST(ConversionExceptions, HaveTheirTextsAndIds) {
    expect_exception(CvtInvalidArgument(), 1, "fl:i18n:CvtInvalidArgument");
    expect_exception(CvtInvalidEncodingName("x"), 2, "Invalid encoding name specified.");
    expect_exception(CvtCallBackSettingFailure(), 3, "fl:i18n:CvtCallBackSettingFailure");
    expect_exception(CvtNonSupportedMode(), 4, "fl:i18n:CvtNonSupportedMode");
    expect_exception(CvtInvalidCharacter(), 5, "Invalid character code sequence detected.");
    expect_exception(CvtSizeTooLarge(), 6, "Data size too large for character code conversion.");
    expect_exception(CvtConversionFailure(), 7, "Failed to convert character code.");
    expect_exception(CvtCloneFailure(), 8, "Failed to make a converter clone.");
    expect_exception(CvtExceptionBase("a text", codecvt_excp_id(3)), 3, "a text");
}

TEST(ConversionExceptions, TravelToAnotherThread) {
    auto const open = [] { codecvt_string_to_ustring("no such encoding", true); };
    EXPECT_THROW(open(), std::exception);
    EXPECT_THROW(open(), boost::exception);
    EXPECT_THROW(open(), CvtExceptionBase);
    boost::exception_ptr carried;
    std::string refused;
    std::thread([&] {
        try {
            open();
        } catch (...) {
            carried = boost::current_exception();
        }
    }).join();
    try {
        boost::rethrow_exception(carried);
    } catch (CvtInvalidEncodingName const & e) {
        refused = e.getEncoding();
    }
    EXPECT_EQ(refused, "no such encoding");
}

} // namespace
} // namespace fl::i18n
