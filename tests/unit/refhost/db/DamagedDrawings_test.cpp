// Damage that the shape of a file does not give away: contents changed behind a valid check sum, and texts
// that are still JSON. Each drawing is refused whole with its place, or it is as sound as any other.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <random>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "refhost/db/DrawingFile.h"
#include "refhost/db/Entity.h"
#include "refhost/db/GeometrySink.h"
#include "tests/unit/refhost/db/SampleDrawing.h"

namespace {

using kvhost::DrawingReadResult;

constexpr std::size_t c_fileHead = 8;
constexpr std::size_t c_blockHead = 8;

std::uint32_t CheckSum(std::string_view bytes) {
    std::uint32_t sum = 0xFFFFFFFF;
    for (const char byte : bytes) {
        sum ^= static_cast<std::uint8_t>(byte);
        for (int bit = 0; bit < 8; ++bit) {
            sum = (sum >> 1) ^ ((sum & 1) != 0 ? 0xEDB88320 : 0);
        }
    }
    return ~sum;
}

template <class Number>
std::string Bytes(Number number) {
    std::string bytes(sizeof number, '\0');
    std::memcpy(bytes.data(), &number, sizeof number);
    return bytes;
}

template <class Number>
Number NumberAt(std::string_view bytes, std::size_t position) {
    Number number{};
    std::memcpy(&number, bytes.data() + position, sizeof number);
    return number;
}

// The contents of the blocks, without the last one, which counts them.
using Blocks = std::vector<std::string>;

Blocks BlocksOf(std::string_view file) {
    Blocks blocks;
    for (std::size_t position = c_fileHead; position < file.size();) {
        const auto length = NumberAt<std::uint32_t>(file, position);
        blocks.emplace_back(file.substr(position + c_blockHead, length));
        position += c_blockHead + length;
    }
    blocks.pop_back();
    return blocks;
}

std::string FileOf(const Blocks& blocks) {
    std::string file = kvhost::QdfContent(kvhost::Database()).substr(0, c_fileHead);
    const auto append = [&](const std::string& content) {
        const std::string length = Bytes(static_cast<std::uint32_t>(content.size()));
        file += length + Bytes(CheckSum(length + content)) + content;
    };
    for (const std::string& content : blocks) {
        append(content);
    }
    append(Bytes(static_cast<std::uint32_t>(blocks.size())));
    return file;
}

std::size_t HandlePosition(const std::string& block) {
    return sizeof(std::uint32_t) + NumberAt<std::uint32_t>(block, 0) * sizeof(wchar_t);
}

class CountingSink final : public kvhost::GeometrySink {
public:
    void Path(std::span<const kvhost::Point3> /*points*/, bool /*closed*/) override { ++count; }
    void Text(const kvhost::TextLine& /*line*/) override { ++count; }
    void Dot(const kvhost::Point3& /*position*/) override { ++count; }
    std::size_t count = 0;
};

class DamagedDrawing : public ::testing::Test {
protected:
    // A drawing that was read can be saved, read again and drawn.
    static void ExpectSound(const kvhost::Database& database) {
        const std::string bytes = kvhost::QdfContent(database);
        const DrawingReadResult again = kvhost::ReadQdf(bytes);
        ASSERT_EQ(again.error, L"");
        EXPECT_TRUE(kvhost::QdfContent(*again.database) == bytes);
        const DrawingReadResult fromText = kvhost::ReadQxf(kvhost::QxfContent(database));
        ASSERT_EQ(fromText.error, L"");
        EXPECT_TRUE(kvhost::QdfContent(*fromText.database) == bytes) << "the formats disagree";
        CountingSink sink;
        for (const KvDbObjectId id : database.ModelSpaceEntities()) {
            kvhost::Database::PeekAs<kvhost::Entity>(id)->Draw(sink, kvhost::Transform());
        }
    }

    using Places = std::span<const std::wstring_view>;
    // How a place is named: of a binary file, and of a text that is no JSON or whose value can't be.
    static constexpr std::array<std::wstring_view, 1> c_inBytes = {L"byte "};
    static constexpr std::array<std::wstring_view, 2> c_inText = {L"line ", L"/"};

    void ExpectRefusedOrSound(const DrawingReadResult& result, Places places) {
        if (!result.database) {
            ++refused;
            EXPECT_TRUE(std::any_of(places.begin(), places.end(),
                                    [&](std::wstring_view place) { return result.error.starts_with(place); }))
                << "no place is named: " << ::testing::PrintToString(result.error);
            return;
        }
        ++accepted;
        EXPECT_EQ(result.error, L"");
        ExpectSound(*result.database);
    }

    const std::string qxf = kvhost::QxfContent(*kvtest::MakeSampleDrawing());
    const Blocks blocks = BlocksOf(kvhost::QdfContent(*kvtest::MakeSampleDrawing()));
    std::size_t refused = 0;
    std::size_t accepted = 0;
};

TEST_F(DamagedDrawing, Qdf_ContentUnchanged_IsRead) {
    const DrawingReadResult result = kvhost::ReadQdf(FileOf(blocks));
    ASSERT_EQ(result.error, L"");
    EXPECT_EQ(kvhost::QxfContent(*result.database), qxf);
}

TEST_F(DamagedDrawing, Qdf_RandomBytesBehindValidCheckSums) {
    for (unsigned seed = 1; seed <= 2000 && !HasFailure(); ++seed) {
        std::mt19937_64 random(seed);
        Blocks damaged = blocks;
        std::string& block = damaged[random() % damaged.size()];
        for (auto changes = 1 + random() % 4; changes > 0; --changes) {
            const std::size_t position = random() % block.size();
            switch (random() % 4) {
                case 0:
                    block.erase(position, 1 + random() % 8);
                    break;
                case 1:
                    block.insert(position, 1 + random() % 8, static_cast<char>(random()));
                    break;
                default:
                    block[position] = static_cast<char>(block[position] ^ (1 << (random() % 8)));
                    break;
            }
            if (block.empty()) {
                break;
            }
        }
        ExpectRefusedOrSound(kvhost::ReadQdf(FileOf(damaged)), c_inBytes);
        EXPECT_FALSE(HasFailure()) << "seed " << seed;
    }
    EXPECT_GT(refused, 500U);
    EXPECT_GT(accepted, 50U);
}

TEST_F(DamagedDrawing, Qdf_HugeNumbersAnywhere) {
    for (std::size_t index = 0; index < blocks.size() && !HasFailure(); ++index) {
        for (std::size_t position = 0; position + sizeof(std::uint32_t) <= blocks[index].size(); ++position) {
            for (const std::uint32_t huge : {0xFFFFFFFFU, 0x7FFFFFFFU}) {
                Blocks damaged = blocks;
                damaged[index].replace(position, sizeof huge, Bytes(huge));
                ExpectRefusedOrSound(kvhost::ReadQdf(FileOf(damaged)), c_inBytes);
            }
        }
        EXPECT_FALSE(HasFailure()) << "block " << index;
    }
    EXPECT_GT(refused, blocks.size());
}

// An object in itself, in what is its own, or known by another's handle; a reference to what it stands in.
TEST_F(DamagedDrawing, Qdf_HandlesExchanged) {
    std::vector<std::uint64_t> handles;
    for (const std::string& block : blocks) {
        handles.push_back(NumberAt<std::uint64_t>(block, HandlePosition(block)));
    }
    for (std::size_t index = 0; index < blocks.size() && !HasFailure(); ++index) {
        const std::string& block = blocks[index];
        for (std::size_t position = HandlePosition(block); position + sizeof(std::uint64_t) <= block.size();
             ++position) {
            const auto found = NumberAt<std::uint64_t>(block, position);
            if (std::find(handles.begin(), handles.end(), found) == handles.end()) {
                continue;
            }
            for (const std::uint64_t other : handles) {
                Blocks damaged = blocks;
                damaged[index].replace(position, sizeof other, Bytes(other));
                ExpectRefusedOrSound(kvhost::ReadQdf(FileOf(damaged)), c_inBytes);
            }
        }
        EXPECT_FALSE(HasFailure()) << "block " << index;
    }
    EXPECT_GT(refused, handles.size());
}

TEST_F(DamagedDrawing, Qdf_ObjectTwiceOrOfItself_IsRefusedAtItsBlock) {
    for (std::size_t index = 0; index < blocks.size(); ++index) {
        const std::size_t handle = HandlePosition(blocks[index]);
        Blocks twice = blocks;
        twice.push_back(blocks[index]);
        EXPECT_FALSE(kvhost::ReadQdf(FileOf(twice)).database) << index;
        Blocks ofItself = blocks;
        ofItself[index].replace(handle + sizeof(std::uint64_t), sizeof(std::uint64_t),
                                blocks[index].substr(handle, sizeof(std::uint64_t)));
        const DrawingReadResult result = kvhost::ReadQdf(FileOf(ofItself));
        EXPECT_FALSE(result.database) << index;
        EXPECT_TRUE(result.error.starts_with(L"byte "));
    }
}

TEST_F(DamagedDrawing, Qxf_RandomBytes) {
    for (unsigned seed = 1; seed <= 2000 && !HasFailure(); ++seed) {
        std::mt19937_64 random(seed);
        std::string damaged = qxf;
        for (auto changes = 1 + random() % 3; changes > 0; --changes) {
            const std::size_t position = random() % damaged.size();
            damaged[position] = static_cast<char>(damaged[position] ^ (1 << (random() % 8)));
        }
        ExpectRefusedOrSound(kvhost::ReadQxf(damaged), c_inText);
        EXPECT_FALSE(HasFailure()) << "seed " << seed;
    }
    EXPECT_GT(refused, 500U);
}

// Each value in turn gets another type, one that its place may not have.
TEST_F(DamagedDrawing, Qxf_WrongTypesAnywhere) {
    for (std::size_t start = qxf.find("\":"); start != std::string::npos && !HasFailure();
         start = qxf.find("\":", start + 1)) {
        const std::size_t value = qxf.find_first_not_of(' ', start + 2);
        const std::size_t end = qxf.find_first_of(",\n}]", value);
        if (qxf[value] == '[' || qxf[value] == '{') {
            continue;  // what is in them has its turn
        }
        for (const char* const wrong :
             {"null", "[]", "{}", "true", "-1", "\"\"", "\"x\"", "1e400", "[[[]]]"}) {
            std::string damaged = qxf;
            damaged.replace(value, end - value, wrong);
            ExpectRefusedOrSound(kvhost::ReadQxf(damaged), c_inText);
        }
        EXPECT_FALSE(HasFailure()) << "at " << start;
    }
    EXPECT_GT(refused, 200U);
}

TEST_F(DamagedDrawing, Qxf_TextThatIsNoUtf8_IsRefusedWithLineAndColumn) {
    const std::size_t place = qxf.find("größe");
    ASSERT_NE(place, std::string::npos);
    for (const char* const bytes : {"\x80", "\xC3", "\xC0\x80", "\xE2\x82", "\xED\xA0\x80",
                                    "\xF4\x90\x80\x80", "\xF8\x88\x80\x80\x80"}) {
        std::string damaged = qxf;
        damaged.insert(place, bytes);
        const DrawingReadResult result = kvhost::ReadQxf(damaged);
        EXPECT_EQ(result.database, nullptr);
        EXPECT_TRUE(result.error.starts_with(L"line "));
    }
}

TEST_F(DamagedDrawing, Qxf_NestedWithoutEnd_IsRefused) {
    for (const char* const opening : {"[", "{\"a\":", "{\"dictionaries\":["}) {
        std::string deep;
        for (int depth = 0; depth < 100'000; ++depth) {
            deep += opening;
        }
        const DrawingReadResult result = kvhost::ReadQxf(deep);
        EXPECT_EQ(result.database, nullptr);
        EXPECT_TRUE(result.error.ends_with(L": nested too deeply"));
    }
}

TEST_F(DamagedDrawing, Qxf_NestedOnceTooDeeply_IsRefusedAtTheBracket) {
    // Brackets within texts nest nothing.
    const auto read = [](std::size_t depth) {
        return kvhost::ReadQxf("{\"a\":\n\"[[\\\"[\",\"b\":" + std::string(depth - 1, '[') +
                               std::string(depth - 1, ']') + '}');
    };
    EXPECT_EQ(read(201).error, L"line 2, column 212: nested too deeply");
    EXPECT_EQ(read(200).error.find(L"nested"), std::wstring::npos);
}

TEST_F(DamagedDrawing, Qxf_BlocksInEachOther_AreRefusedAtTheReference) {
    const DrawingReadResult result = kvhost::ReadQxf(
        R"({"format":"qxf","version":1,"blocks":[
            {"name":"A","entities":[{"type":"BlockReference","block":"B","position":[1,2]}]},
            {"name":"B","entities":[{"type":"BlockReference","block":"A","position":[1,2]}]}]})");
    EXPECT_EQ(result.database, nullptr);
    EXPECT_TRUE(result.error.starts_with(L"/blocks/"));
}

TEST_F(DamagedDrawing, Qxf_LayerZeroTwice_IsRefused) {
    const DrawingReadResult result =
        kvhost::ReadQxf(R"({"format":"qxf","version":1,"layers":[{"name":"0"},{"name":"0"}]})");
    EXPECT_EQ(result.database, nullptr);
    EXPECT_EQ(result.error, L"/layers/1: name: another object has it");
}

TEST_F(DamagedDrawing, Qxf_HandleOfAnObjectOfAnotherKind_IsRefused) {
    const DrawingReadResult result = kvhost::ReadQxf(
        R"({"format":"qxf","version":1,"layers":[{"name":"A","handle":"20"}],
            "entities":[{"type":"Point","position":[1,2],"handle":"20"}]})");
    EXPECT_EQ(result.database, nullptr);
    EXPECT_EQ(result.error, L"/entities/0: handle: 20 is taken");
}

}  // namespace
