// The state of a program that was just started, ahead of every case.
#pragma once

#include <doctest/doctest.h>

/// Sets every global of the engine to its first value and the settings to their defaults. gHost is empty.
void StartFresh();

/// Calls StartFresh ahead of every case and every new pass through its subcases, so that cases do not depend on those
/// before them. Each test program registers it.
struct FreshListener : doctest::IReporter
{
    explicit FreshListener(const doctest::ContextOptions&) {}
    void test_case_start(const doctest::TestCaseData&) override { StartFresh(); }
    void test_case_reenter(const doctest::TestCaseData&) override { StartFresh(); }

    void report_query(const doctest::QueryData&) override {}
    void test_run_start() override {}
    void test_run_end(const doctest::TestRunStats&) override {}
    void test_case_end(const doctest::CurrentTestCaseStats&) override {}
    void test_case_exception(const doctest::TestCaseException&) override {}
    void subcase_start(const doctest::SubcaseSignature&) override {}
    void subcase_end() override {}
    void log_assert(const doctest::AssertData&) override {}
    void log_message(const doctest::MessageData&) override {}
    void test_case_skipped(const doctest::TestCaseData&) override {}
};
