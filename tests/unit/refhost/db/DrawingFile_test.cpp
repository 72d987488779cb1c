#include "refhost/db/DrawingFile.h"

#include <gtest/gtest.h>

#include "framework/base/WindowsApi.h"
#include "refhost/testing/Faults.h"
#include "tests/unit/refhost/db/SampleDrawing.h"

namespace {

using kvhost::DrawingReadResult;

/// A folder of its own for each test, removed with all its files afterwards.
class DrawingFile : public testing::Test {
protected:
    void SetUp() override {
        wchar_t temporary[MAX_PATH];
        ::GetTempPathW(MAX_PATH, temporary);
        m_folder = std::wstring(temporary) + L"größe " + std::to_wstring(::GetCurrentProcessId()) + L"\\";
        ASSERT_TRUE(::CreateDirectoryW(m_folder.c_str(), nullptr));
    }
    void TearDown() override {
        for (const std::wstring& name : Files()) {
            ::SetFileAttributesW((m_folder + name).c_str(), FILE_ATTRIBUTE_NORMAL);
            ::DeleteFileW((m_folder + name).c_str());
        }
        EXPECT_TRUE(::RemoveDirectoryW(m_folder.c_str()));
    }

    std::vector<std::wstring> Files() const {
        std::vector<std::wstring> names;
        WIN32_FIND_DATAW found;
        const HANDLE search = ::FindFirstFileW((m_folder + L"*").c_str(), &found);
        if (search != INVALID_HANDLE_VALUE) {
            do {
                if ((found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0) {
                    names.emplace_back(found.cFileName);
                }
            } while (::FindNextFileW(search, &found));
            ::FindClose(search);
        }
        return names;
    }

    std::wstring m_folder;
};

TEST_F(DrawingFile, BothFormats_AreChosenByExtension) {
    const auto database = kvtest::MakeSampleDrawing();
    for (const wchar_t* const name : {L"a.qxf", L"日本.QDF"}) {
        const std::wstring path = m_folder + name;
        ASSERT_EQ(kvhost::WriteDrawing(*database, path), L"");
        const DrawingReadResult result = kvhost::ReadDrawing(path);
        ASSERT_EQ(result.error, L"");
        EXPECT_EQ(kvhost::QdfContent(*result.database), kvhost::QdfContent(*database));
    }
    EXPECT_EQ(Files().size(), 2U) << "nothing else is left";
}

TEST_F(DrawingFile, ByteOrderMark_IsNoDamage) {
    const std::string content = "\xEF\xBB\xBF" + kvhost::QxfContent(kvhost::Database());
    EXPECT_EQ(kvhost::ReadQxf(content).error, L"");
}

TEST_F(DrawingFile, OtherNames_AreRefused) {
    const kvhost::Database database;
    EXPECT_NE(kvhost::WriteDrawing(database, m_folder + L"a.txt"), L"");
    EXPECT_NE(kvhost::WriteDrawing(database, m_folder + L"a.geojson"), L"");
    EXPECT_NE(kvhost::WriteDrawing(database, m_folder + L"qxf"), L"");
    EXPECT_TRUE(Files().empty());
    const DrawingReadResult missing = kvhost::ReadDrawing(m_folder + L"missing.qxf");
    EXPECT_EQ(missing.database, nullptr);
    EXPECT_EQ(missing.error.find(m_folder + L"missing.qxf: "), 0U);
}

TEST_F(DrawingFile, Save_ReplacesTheOldFile) {
    const std::wstring path = m_folder + L"a.qxf";
    ASSERT_EQ(kvhost::WriteDrawing(*kvtest::MakeSampleDrawing(), path), L"");
    const kvhost::Database empty;
    ASSERT_EQ(kvhost::WriteDrawing(empty, path), L"");
    const DrawingReadResult result = kvhost::ReadDrawing(path);
    ASSERT_EQ(result.error, L"");
    EXPECT_EQ(kvhost::QdfContent(*result.database), kvhost::QdfContent(empty));
}

TEST_F(DrawingFile, FailedSave_LeavesTheOldFile) {
    const std::wstring path = m_folder + L"a.qxf";
    const auto old = kvtest::MakeSampleDrawing();
    ASSERT_EQ(kvhost::WriteDrawing(*old, path), L"");
    const kvhost::Database empty;
    kvhost::Faults::FailService(L"writeDrawing", 1);
    EXPECT_NE(kvhost::WriteDrawing(empty, path), L"");
    kvhost::Faults::Reset();
    {
        // Who has the file open without letting others delete it, keeps it from being replaced.
        const HANDLE reader = ::CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr,
                                            OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
        ASSERT_NE(reader, INVALID_HANDLE_VALUE);
        EXPECT_NE(kvhost::WriteDrawing(empty, path), L"");
        ::CloseHandle(reader);
    }
    EXPECT_NE(kvhost::WriteDrawing(empty, m_folder + L"missing\\a.qxf"), L"");
    EXPECT_EQ(Files(), std::vector<std::wstring>{L"a.qxf"});
    const DrawingReadResult result = kvhost::ReadDrawing(path);
    ASSERT_EQ(result.error, L"");
    EXPECT_EQ(kvhost::QdfContent(*result.database), kvhost::QdfContent(*old));
}

TEST_F(DrawingFile, FaultSwitch_MakesReadingFail) {
    const std::wstring path = m_folder + L"a.qdf";
    ASSERT_EQ(kvhost::WriteDrawing(kvhost::Database(), path), L"");
    kvhost::Faults::FailService(L"readDrawing", 1);
    EXPECT_EQ(kvhost::ReadDrawing(path).database, nullptr);
    kvhost::Faults::Reset();
    EXPECT_NE(kvhost::ReadDrawing(path).database, nullptr);
}

}  // namespace
