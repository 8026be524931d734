#include <boost/date_time/posix_time/posix_time_types.hpp>
#include <fl/i18n/date_time.hpp>
#include <gtest/gtest.h>

namespace fl::i18n::date_time {

namespace {

using boost::gregorian::date;
using boost::posix_time::microseconds;
using boost::posix_time::ptime;

TEST(file_time, counts_100_nanoseconds_since_1601) {
    struct {
        ptime time;
        std::uint64_t file_time;
    } const rows[] = {
        {ptime(date(1601, 1, 1)), 0},
        {ptime(date(1601, 1, 1), microseconds(1)), 10},
        {ptime(date(1970, 1, 1)), 116444736000000000},
        {ptime(date(2000, 2, 29), microseconds(86399'999999)), 125963423999999990},
        {ptime(date(9999, 12, 31), microseconds(86399'999999)), 2650467743999999990},
    };
    for (auto const & row : rows) {
        EXPECT_EQ(ptime_to_filetime(row.time), row.file_time);
        EXPECT_EQ(filetime_to_ptime(row.file_time), row.time);
        EXPECT_EQ(filetime_to_ptime(row.file_time + 9), row.time) << "rounded down";
    }
}

TEST(file_time, refuses_what_the_other_side_cannot_express) {
    for (ptime const & time :
         {ptime(), ptime(boost::posix_time::pos_infin), ptime(boost::posix_time::neg_infin),
          ptime(date(1601, 1, 1)) - microseconds(1), ptime(date(1400, 1, 1)),
          ptime(date(9999, 12, 31)) + boost::posix_time::hours(24)}) {
        EXPECT_THROW(ptime_to_filetime(time), DateTimeOutOfRange);
    }
    EXPECT_THROW(filetime_to_ptime(2650467744000000000), DateTimeOutOfRange);
    try {
        filetime_to_ptime(~std::uint64_t());
        ADD_FAILURE();
    } catch (date_time_exception_base const & e) {
        EXPECT_STREQ(e.what(), "Date and time out of range.");
        EXPECT_EQ(e.getMsgId(), "fl:i18n:DateTimeOutOfRange");
        EXPECT_EQ(e.get_excp_id(), date_time_excp_out_of_range);
    }
}

} // namespace

} // namespace fl::i18n::date_time
