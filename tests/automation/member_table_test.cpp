// SPDX-License-Identifier: MIT
#include "automation/member_table.h"

#include <gtest/gtest.h>
#include <map>

#include "automation/enumeration_table.h"
#include "tests/bmp_file.h"
#include "tests/document_fixture.h"

namespace vellumark::automation {
namespace {

class MemberTable : public testing::Test {
 protected:
  MemberTable() { memory->SetTime(tests::kMoment); }

  /// Calls a method of PDF with `arguments`, and the defaults for those left out.
  Value Call(std::string_view name, std::vector<Value> arguments) {
    const Member* member = members.Find(name);
    EXPECT_NE(member, nullptr) << name;
    for (const Parameter& parameter : member->parameters().subspan(arguments.size())) {
      arguments.push_back(DefaultOf(parameter));
    }
    Value result = member->call(doc, arguments);
    answers = arguments;
    return result;
  }

  std::shared_ptr<MemoryPlatform> memory = std::make_shared<MemoryPlatform>();
  PDF doc{memory};
  ClassMembers members{Class::PDF};
  std::vector<Value> answers;  // of the last call, at the places of its parameters
};

Value Short(int number) { return static_cast<std::int16_t>(number); }
Value Byte(int number) { return static_cast<std::uint8_t>(number); }
Value Text(std::string text) { return text; }

TEST_F(MemberTable, NamesAreFoundInAnyCaseAndByClass) {
  EXPECT_EQ(members.Find("WRITETEXT"), members.Find(members.Find("WriteText")->id));
  EXPECT_EQ(members.Find("WriteTex"), nullptr);
  EXPECT_EQ(members.Find(""), nullptr);
  EXPECT_EQ(members.Find(0), nullptr);
  EXPECT_EQ(FindParameter(*members.Find("WriteText"), "HyperLink"), 4);
  const ClassMembers ps(Class::PS);
  for (const char* name : {"Keywords", "Producer", "Subject"}) EXPECT_EQ(ps.Find(name), nullptr);
  EXPECT_EQ(FindParameter(*ps.Find("WriteText"), "hyperlink"), -1);
  EXPECT_EQ(FindParameter(*ps.Find("DrawPicture"), "encoding"), 2);
  EXPECT_EQ(FindParameter(*members.Find("DrawPicture"), "encoding"), 3);
}

// A compiled host keeps the ids; whoever inserts or deletes a row in the middle moves one of these.
TEST_F(MemberTable, IdsStayWhereTheyAre) {
  const std::map<std::string_view, std::int32_t> ids = {
      {"Author", 1},   {"Version", 10},     {"Flush", 13},
      {"DrawArc", 19}, {"DrawPicture", 23}, {"GetDash", 29},
      {"SetFont", 36}, {"SetPosition", 42}, {"LastRefusal", 43},
  };
  for (const auto& [name, id] : ids) EXPECT_EQ(members.Find(name)->id, id) << name;
}

TEST_F(MemberTable, APictureIsAFileOrItsBytesAndSoIsAFont) {
  const std::string file = tests::PlainBmp(2, 2);
  memory->PutFile("dot.bmp", file);
  Call("Create", {Text("doc")});
  Call("NewPage", {Short(50), Short(50), Short(50), Short(50), Byte(255), Byte(255), Byte(255)});
  const std::int32_t flate = 4;
  EXPECT_EQ(Call("DrawPicture", {Text("dot.bmp"), 0, Text(""), flate}), Value(true));
  EXPECT_EQ(Call("DrawPicture", {automation::Bytes(file.begin(), file.end()), 0, Text(""), flate}),
            Value(true));
  for (const Member& member : automation::MemberTable()) {
    for (const automation::Parameter& parameter : member.parameters()) {
      const bool reads = member.name == "DrawPicture" || member.name == "LoadFont";
      EXPECT_EQ(parameter.bytes, reads && parameter.name == "file");
    }
  }
}

TEST_F(MemberTable, ADocumentMadeByNameIsTheOneMadeDirectly) {
  Value title = Text("Straße");
  members.Find("Title")->let(doc, {&title, 1});
  EXPECT_EQ(Call("Create", {Text("named")}), Value(true));
  Call("NewPage", {Short(50), Short(50), Short(50), Short(50), Byte(255), Byte(255), Byte(255)});
  Call("SetFont", {3, Byte(12), 2, 0});
  EXPECT_EQ(Call("WriteText", {Text("one"), true}), Value(true));
  EXPECT_EQ(Call("DrawArc", {Short(100), Short(100), Short(50), 10.0F, 80.0F}), Value(true));
  EXPECT_EQ(Call("WriteText", {Text("two"), true, Byte(3), 2, Text("http://example.com/")}),
            Value(true));
  Call("Flush", {});

  PDF direct(memory);
  direct.Title("Straße");
  direct.Create("direct");
  direct.NewPage(50, 50, 50, 50, 255, 255, 255);
  direct.SetFont(FontNumberConstants::Times, 12, FontStyleConstants::Bold,
                 FontEffectConstants::NoFontEffect);
  direct.WriteText("one", true);
  direct.DrawArc(100, 100, 50, 10, 80);
  direct.WriteText("two", true, 3, AlignmentConstants::Center, "http://example.com/");
  direct.Flush();
  EXPECT_EQ(memory->TakeFile("named"), memory->TakeFile("direct"));
}

TEST_F(MemberTable, AnswersComeBackInTheArguments) {
  Call("Create", {Text("doc")});
  Call("SetColor", {Byte(1), Byte(2), Byte(3)});
  Call("GetColor", {Byte(0), Byte(0), Byte(0)});
  EXPECT_EQ(answers, (std::vector<Value>{Byte(1), Byte(2), Byte(3)}));
  Call("SetFont", {9, Byte(100), 3, 7});
  Call("GetFont", {-5, Byte(0), -5, -5});
  EXPECT_EQ(answers, (std::vector<Value>{1, Byte(8), 1, 0}));
  Call("SetPosition", {Short(7), Short(8)});
  Call("SetPosition", {Short(20)});
  Call("GetPosition", {Short(0), Short(0)});
  EXPECT_EQ(answers, (std::vector<Value>{Short(20), Short(8)}));
}

TEST_F(MemberTable, RunTimeErrorsReachTheCaller) {
  try {
    Call("GetColor", {Byte(0), Byte(0), Byte(0)});
    FAIL() << "there is no color before Create";
  } catch (const RunTimeError& error) {
    EXPECT_EQ(error.number(), RunTimeError::SubscriptOutOfRange);
  }
}

TEST_F(MemberTable, TheLastRefusalIsReadAsASentence) {
  const Member& refusal = *members.Find("LastRefusal");
  EXPECT_FALSE(refusal.Has(Kind::Let));
  Value paper = 2;
  members.Find("PaperSize")->let(doc, {&paper, 1});
  EXPECT_EQ(Call("Create", {Text("doc")}), Value(false));
  EXPECT_EQ(refusal.call(doc, {}), Value(doc.LastRefusal().sentence));
  EXPECT_NE(refusal.call(doc, {}), Text(""));
  paper = 9;
  members.Find("PaperSize")->let(doc, {&paper, 1});
  EXPECT_EQ(Call("Create", {Text("doc")}), Value(true));
  EXPECT_EQ(refusal.call(doc, {}), Text(""));
}

TEST_F(MemberTable, EnumerationsHaveTheirValuesAndOrder) {
  std::string all;
  for (const Enumeration& enumeration : EnumerationTable()) {
    all.append(enumeration.name).append(":");
    for (const auto& [name, value] : enumeration.members) {
      all.append(" ").append(name).append("=").append(std::to_string(value));
    }
    all.append("\n");
  }
  EXPECT_EQ(all,
            "AlignmentConstants: NoAlignment=0 LeftAlign=1 Center=2 RightAlign=3\n"
            "BulletConstants: Disc=1 Square=2\n"
            "EncodingConstants: ASCII85=1 ASCIIHex=2 RunLength=3 Flate=4 Original=5\n"
            "FontEffectConstants: NoFontEffect=0 Strikethrough=1 Underline=2\n"
            "FontNumberConstants: Courier=1 Helvetica=2 Times=3 Symbol=4 ZapfDingbats=5\n"
            "FontStyleConstants: Regular=1 Bold=2 Italic=3 BoldItalic=4\n"
            "OrientationConstants: Portrait=1 Landscape=2\n"
            "PaperSizeConstants: A3=8 A4=9 A5=11 Executive=7 Folio=14 Ledger=4 Legal=5 Letter=1 "
            "Tabloid=3\n");
}

}  // namespace
}  // namespace vellumark::automation
