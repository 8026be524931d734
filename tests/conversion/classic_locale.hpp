#pragma once

#include <fl/i18n/locale.hpp>
#include <gtest/gtest.h>

namespace fl::i18n {

/// Tests under the classic locale, whose encoding is UTF-8.
class ClassicLocale : public testing::Test {
protected:
    ClassicLocale() { change_global_locale(QzLocale::classic()); }
    ~ClassicLocale() override { change_global_locale(previous_); }

private:
    QzLocale const & previous_ = QzLocale::global();
};

} // namespace fl::i18n
