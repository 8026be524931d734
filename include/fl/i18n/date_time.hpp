#pragma once

#include <fl/i18n/export.hpp>

#include <boost/date_time/posix_time/ptime.hpp>
#include <cstdint>
#include <exception>
#include <string>

/// Points in time as `boost::posix_time::ptime`, in UTC and in Boost's default resolution of a microsecond.
///
/// Any thread may call the functions. Programs that change that resolution
/// (`BOOST_DATE_TIME_POSIX_TIME_STD_CONFIG`) cannot use these functions.
namespace fl::i18n::date_time {

/// Identifies an exception of the date and time family.
enum date_time_excp_id : int {
    date_time_excp_out_of_range = 1,
};

/// The base of all exceptions that date and time operations throw.
class FL_I18N_API date_time_exception_base : public std::exception {
public:
    /// Takes the identifier, the text and the kind of a derived class.
    date_time_exception_base(char const * msg_id, char const * text, date_time_excp_id id);
    ~date_time_exception_base() override;
    /// Copies an exception, as carrying it to another thread does.
    date_time_exception_base(date_time_exception_base const &);
    /// Replaces an exception by a copy of another one.
    date_time_exception_base & operator=(date_time_exception_base const &);

    /// Returns the English text.
    char const * what() const noexcept override;
    /// Returns the identifier under which the library's catalog holds the text.
    std::string getMsgId() const;
    /// Returns the numeric kind of the exception.
    date_time_excp_id get_excp_id() const noexcept;

private:
    std::string msg_id_;
    std::string text_;
    date_time_excp_id id_;
};

/// A time is not a point in time, or one that the other representation cannot express.
class FL_I18N_API DateTimeOutOfRange : public date_time_exception_base {
public:
    DateTimeOutOfRange();
};

/// Returns a time as a Windows file time: the number of 100-nanosecond intervals since 1601-01-01 in UTC.
///
/// Throws `DateTimeOutOfRange` for a special value (not-a-date-time, the infinities) and for a time outside
/// the years 1601 to 9999.
FL_I18N_API std::uint64_t ptime_to_filetime(boost::posix_time::ptime const & time);

/// Returns a Windows file time as a `ptime`, rounded down to a microsecond; throws `DateTimeOutOfRange` after
/// the year 9999.
FL_I18N_API boost::posix_time::ptime filetime_to_ptime(std::uint64_t file_time);

} // namespace fl::i18n::date_time
