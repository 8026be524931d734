#include "lookup/environment_rules.hpp"

#include <cerrno>
#include <gtest/gtest.h>
#include <map>
#include <optional>

namespace fl::i18n::environment {

namespace {

using variables = std::map<ustring, ustring>;

/// Two environments that need not agree, as on Windows.
class fake_environment final : public platform::environment_access {
public:
    mutable variables system;
    variables runtime;
    std::uint32_t system_error = 0;
    bool runtime_fails = false;
    /// The value takes this length when it is next asked for.
    mutable std::vector<std::size_t> next_lengths;

    std::size_t get_system(char16_t const * name, char16_t * buffer, std::size_t size) const override {
        auto const found = system.find(name);
        if (found == system.end()) {
            return 0;
        }
        if (!next_lengths.empty()) {
            found->second = ustring(next_lengths.back(), u'v');
            next_lengths.pop_back();
        }
        if (found->second.size() >= size) {
            return found->second.size() + 1;
        }
        std::copy_n(found->second.c_str(), found->second.size() + 1, buffer);
        return found->second.size();
    }
    std::uint32_t set_system(char16_t const * name, char16_t const * value) override {
        if (system_error == 0) {
            set(system, name, value);
        }
        return system_error;
    }
    std::size_t get_runtime_size(char16_t const * name) const override {
        auto const found = runtime.find(name);
        return found == runtime.end() ? 0 : found->second.size() + 1;
    }
    bool set_runtime(char16_t const * name, char16_t const * value) override {
        if (runtime_fails) {
            errno = ERANGE;
            return false;
        }
        set(runtime, name, *value ? value : nullptr);
        set(system, name, *value ? value : nullptr);
        return true;
    }

private:
    static void set(variables & in, char16_t const * name, char16_t const * value) {
        value ? void(in[name] = value) : void(in.erase(name));
    }
};

/// What a call left: its result, `errno` (77 when untouched) and the value in both environments.
struct outcome {
    int result;
    int error;
    std::optional<ustring> system;
    std::optional<ustring> runtime;
    bool operator==(outcome const &) const = default;
};

std::optional<ustring> value_in(variables const & in) {
    auto const found = in.find(u"V");
    return found == in.end() ? std::nullopt : std::optional(found->second);
}

constexpr int untouched = 77;

template <class Call>
outcome run(fake_environment & environment, Call call) {
    errno = untouched;
    int const result = call();
    return {result, errno, value_in(environment.system), value_in(environment.runtime)};
}

struct change_row {
    char const * name;
    std::optional<ustring> system;
    std::optional<ustring> runtime;
    ustring value;
    int overwrite;
    bool allow_empty;
    outcome expected;
};

fake_environment make(std::optional<ustring> const & system, std::optional<ustring> const & runtime) {
    fake_environment environment;
    if (system) {
        environment.system[u"V"] = *system;
    }
    if (runtime) {
        environment.runtime[u"V"] = *runtime;
    }
    return environment;
}

TEST(environment_rules, set_variable) {
    auto const none = std::nullopt;
    change_row const rows[] = {
        {"new", none, none, u"n", 0, false, {0, 0, u"n", u"n"}},
        {"replaced", u"o", u"o", u"n", 1, false, {0, 0, u"n", u"n"}},
        {"kept", u"o", u"o", u"n", 0, false, {0, 0, u"o", u"o"}},
        {"kept_in_runtime_only", none, u"o", u"n", 0, false, {0, 0, none, u"o"}},
        {"kept_in_system_only", u"o", none, u"n", 0, false, {0, 0, u"o", none}},
        {"system_only_stays_so", u"o", none, u"n", 1, false, {0, 0, u"n", none}},
        {"runtime_only_goes_to_both", none, u"o", u"n", 1, false, {0, 0, u"n", u"n"}},
        {"empty_is_refused", u"o", u"o", u"", 1, false, {-1, EINVAL, u"o", u"o"}},
        {"empty_is_refused_before_it_is_kept", u"o", u"o", u"", 0, false, {-1, EINVAL, u"o", u"o"}},
        {"empty_removes", u"o", u"o", u"", 1, true, {0, 0, none, none}},
        {"empty_removes_from_system", u"o", none, u"", 1, true, {0, 0, none, none}},
        {"empty_keeps_without_overwrite", u"o", u"o", u"", 0, true, {0, 0, u"o", u"o"}},
        {"empty_of_absent", none, none, u"", 1, true, {0, 0, none, none}},
        {"present_but_empty_is_kept", u"", none, u"n", 0, false, {0, 0, u"", none}},
        {"null_in_value", none, none, ustring(u"a\0b", 3), 1, true, {-1, EINVAL, none, none}},
    };
    for (auto const & row : rows) {
        SCOPED_TRACE(row.name);
        fake_environment environment = make(row.system, row.runtime);
        EXPECT_EQ(
            run(environment,
                [&] { return set_variable(environment, u"V", row.value, row.overwrite, row.allow_empty); }),
            row.expected);
    }
}

TEST(environment_rules, remove_variable) {
    auto const none = std::nullopt;
    for (auto const & [system, runtime] :
         {std::pair<std::optional<ustring>, std::optional<ustring>>{none, none},
          {u"o", none},
          {none, u"o"},
          {u"o", u"o"}}) {
        fake_environment environment = make(system, runtime);
        EXPECT_EQ(run(environment, [&] { return remove_variable(environment, u"V"); }),
                  (outcome{0, 0, none, none}));
    }
}

TEST(environment_rules, names_that_cannot_be_are_refused) {
    for (ustring const & name : {ustring(), ustring(u"V\0", 2), ustring(u"A=B"), ustring(u"=V")}) {
        fake_environment environment = make(u"o", u"o");
        EXPECT_EQ(run(environment, [&] { return set_variable(environment, name, u"n", 1, true); }),
                  (outcome{-1, EINVAL, u"o", u"o"}));
        EXPECT_EQ(run(environment, [&] { return remove_variable(environment, name); }),
                  (outcome{-1, EINVAL, u"o", u"o"}));
        bool const has_equals_sign = name.find(u'=') != ustring::npos;
        EXPECT_EQ(run(environment, [&] { return int(is_present(environment, name)); }).error,
                  has_equals_sign ? untouched : EINVAL);
        EXPECT_EQ(run(environment, [&] { return int(get_variable(environment, name).size()); }).error,
                  has_equals_sign ? untouched : EINVAL);
    }
}

TEST(environment_rules, system_errors_become_errno) {
    for (auto const & [code, expected] :
         {std::pair{8u, ENOMEM}, {14u, ENOMEM}, {206u, ENAMETOOLONG}, {87u, EACCES}, {203u, EACCES}}) {
        SCOPED_TRACE(code);
        fake_environment environment = make(u"o", std::nullopt);
        environment.system_error = code;
        outcome const failed{-1, expected, u"o", std::nullopt};
        EXPECT_EQ(run(environment, [&] { return set_variable(environment, u"V", u"n", 1, false); }), failed);
        EXPECT_EQ(run(environment, [&] { return set_variable(environment, u"V", u"", 1, true); }), failed);
        EXPECT_EQ(run(environment, [&] { return remove_variable(environment, u"V"); }), failed);
    }
}

TEST(environment_rules, runtime_errors_keep_the_runtimes_errno) {
    fake_environment environment = make(u"o", u"o");
    environment.runtime_fails = true;
    outcome const failed{-1, ERANGE, u"o", u"o"};
    EXPECT_EQ(run(environment, [&] { return set_variable(environment, u"V", u"n", 1, false); }), failed);
    EXPECT_EQ(run(environment, [&] { return remove_variable(environment, u"V"); }), failed);
}

TEST(environment_rules, get_variable_reads_the_system_only_and_leaves_errno) {
    fake_environment environment = make(std::nullopt, u"o");
    errno = untouched;
    EXPECT_EQ(get_variable(environment, u"V"), u"");
    EXPECT_EQ(errno, untouched);
    EXPECT_TRUE(is_present(environment, u"V"));
    EXPECT_TRUE(is_present(make(u"", std::nullopt), u"V"));
    EXPECT_FALSE(is_present(make(std::nullopt, std::nullopt), u"V"));
}

TEST(environment_rules, get_variable_takes_values_of_every_length) {
    for (std::size_t const length : {1u, 254u, 255u, 256u, 257u, 40000u}) {
        fake_environment const environment = make(ustring(length, u'v'), std::nullopt);
        EXPECT_EQ(get_variable(environment, u"V"), ustring(length, u'v'));
    }
    fake_environment environment = make(u"o", std::nullopt);
    environment.next_lengths = {400, 1000, 500, 300};
    EXPECT_EQ(get_variable(environment, u"V"), ustring(400, u'v')) << "it grew twice, then shrank";
    environment.next_lengths = {300};
    environment.system.erase(u"V");
    EXPECT_EQ(get_variable(environment, u"V"), u"");
}

TEST(environment_rules, hold_for_a_variable_set_behind_the_runtimes_back) {
    platform::environment_access & real = platform::process_environment();
    ustring const name = u"FL_I18N_TEST_BEHIND";
    ASSERT_EQ(real.set_system(name.c_str(), u"old"), 0u);
    EXPECT_TRUE(is_present(real, name));
    EXPECT_EQ(set_variable(real, name, u"new", 1, false), 0);
    EXPECT_EQ(get_variable(real, name), u"new");
    EXPECT_EQ(remove_variable(real, name), 0);
    EXPECT_FALSE(is_present(real, name));
}

} // namespace

} // namespace fl::i18n::environment
