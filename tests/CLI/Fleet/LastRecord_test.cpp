// SPDX-License-Identifier: MIT
// The same in a process without memory is in tests/failing.
#include "CLI/Fleet/LastRecord.h"
#include "tests/support/TempFolder.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace {

class LastRecordTest : public ::testing::Test {
protected:
    LastRecordTest()
    {
        m_facts.command = "update";
        m_facts.exitCode = 19;
        m_facts.name = "system-error";
        m_facts.bytesWentOut = std::nullopt;
    }
    TempFolder m_folder;
    const std::string m_path = m_folder / "results";
    LastFacts m_facts;
    LastRecord m_record;
};

} // namespace

TEST_F(LastRecordTest, IsTheLastLineWithThePrinter)
{
    m_record.prepare(MemberOrder{"Hall \"2\"", m_path, std::nullopt});
    m_record.write(m_facts);
    const auto text = readFile(m_path);
    EXPECT_EQ(text.find('\n'), text.size() - 1);
    const auto json = nlohmann::json::parse(text);
    EXPECT_EQ(json["printer"], "Hall \"2\"");
    EXPECT_EQ(json["exit_code"], 19);
    const auto end = ResultsFile(m_path).ends("update").at("Hall \"2\"");
    EXPECT_EQ(end.memberClass, MemberClass::failed);
    EXPECT_EQ(end.next, "check-printer");
}

TEST_F(LastRecordTest, AnEndIsRecordedOnce)
{
    m_record.prepare(MemberOrder{"a", m_path, std::nullopt});
    m_record.write(m_facts);
    const auto once = readFile(m_path);
    m_record.write(m_facts);
    EXPECT_EQ(readFile(m_path), once);
    LastRecord other;
    other.prepare(MemberOrder{"b", m_path, std::nullopt});
    other.done();
    other.write(m_facts);
    EXPECT_EQ(readFile(m_path), once);
}

TEST_F(LastRecordTest, NothingIsWrittenWithoutAnOrderOrResults)
{
    m_record.write(m_facts);
    m_record.prepare(std::nullopt);
    m_record.write(m_facts);
    m_record.prepare(MemberOrder{"a", std::nullopt, std::nullopt});
    m_record.write(m_facts);
    EXPECT_FALSE(std::filesystem::exists(m_path));
}

TEST_F(LastRecordTest, AFileThatCannotBeWrittenIsLeft)
{
    m_record.prepare(MemberOrder{"a", "/nowhere/results", std::nullopt});
    m_record.write(m_facts);
    EXPECT_TRUE(ResultsFile("/nowhere/results").ends("update").empty());
}
