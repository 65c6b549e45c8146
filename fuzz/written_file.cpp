// SPDX-License-Identifier: MIT
#include "fuzz/written_file.h"

#include <cctype>
#include <charconv>
#include <cstdint>
#include <map>
#include <set>
#include <stdexcept>
#include <utility>

namespace vellumark::fuzz {
namespace {

class Fault : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

void Require(bool right, const std::string& otherwise) {
  if (!right) throw Fault(otherwise);
}

/// Goes over a file from its beginning.
class Reader {
 public:
  explicit Reader(std::string_view file) : file_(file) {}

  [[nodiscard]] std::size_t at() const { return at_; }
  [[nodiscard]] bool StartsWith(std::string_view text) const {
    return file_.substr(at_).starts_with(text);
  }
  void Skip(std::size_t count) {
    Require(count <= file_.size() - at_, "the file ends early");
    at_ += count;
  }
  void Expect(std::string_view text) {
    Require(StartsWith(text), "expected \"" + std::string(text) + "\" at " + std::to_string(at_));
    at_ += text.size();
  }
  std::int64_t Number() {
    std::int64_t number = -1;
    const char* const end = file_.data() + file_.size();
    const auto [stop, error] = std::from_chars(file_.data() + at_, end, number);
    Require(error == std::errc{}, "expected a number at " + std::to_string(at_));
    at_ = static_cast<std::size_t>(stop - file_.data());
    return number;
  }
  /// The bytes up to `end`, which is passed over.
  std::string_view Until(std::string_view end) {
    const std::size_t found = file_.find(end, at_);
    Require(found != std::string_view::npos, "no \"" + std::string(end) + "\"");
    const std::string_view before = file_.substr(at_, found - at_);
    at_ = found + end.size();
    return before;
  }
  void GoTo(std::size_t at) { at_ = at; }
  [[nodiscard]] std::string_view file() const { return file_; }

 private:
  std::string_view file_;
  std::size_t at_ = 0;
};

/// What the value of an object says: its references, and of its outermost dictionary some entries.
struct Value {
  std::set<std::int64_t> references;
  std::map<std::string, std::string, std::less<>> entries;  // of names, numbers and references
  int kids = 0;
};

/// Reads one value and what is inside it.
class ValueReader {
 public:
  ValueReader(Reader& reader, Value& value) : reader_(reader), value_(value) {}

  void Read() {
    do {
      Token();
    } while (depth_ > 0);
  }

 private:
  static bool IsBlank(char c) { return c == ' ' || c == '\n'; }

  void String() {
    int open = 0;
    do {
      Require(reader_.at() < reader_.file().size(), "a string does not end");
      const char c = reader_.file()[reader_.at()];
      reader_.Skip(c == '\\' ? 2 : 1);
      open += c == '(' ? 1 : c == ')' ? -1 : 0;
    } while (open > 0);
  }

  void Token() {
    while (reader_.StartsWith(" ") || reader_.StartsWith("\n")) reader_.Skip(1);
    if (reader_.StartsWith("(")) return String();
    if (reader_.StartsWith("<<")) return Open(2);
    if (reader_.StartsWith(">>")) return Close(2);
    if (reader_.StartsWith("[")) return Open(1);
    if (reader_.StartsWith("]")) return Close(1);
    if (reader_.StartsWith("<")) {
      reader_.Skip(1);
      for (const char c : reader_.Until(">")) {
        Require(std::isxdigit(static_cast<unsigned char>(c)) != 0, "a wrong hexadecimal digit");
      }
      return;
    }
    Word();
  }

  void Open(std::size_t size) {
    reader_.Skip(size);
    ++depth_;
  }
  void Close(std::size_t size) {
    reader_.Skip(size);
    Require(--depth_ >= 0, "brackets do not match");
  }

  void Word() {
    const std::string_view rest = reader_.file().substr(reader_.at());
    const std::size_t end = rest.find_first_of(" \n()<>[]/", 1);
    Require(end != std::string_view::npos, "the file ends early");
    const std::string_view word = rest.substr(0, end);
    reader_.Skip(end);
    if (word == "R") {
      Require(before_ == "0", "a reference to another generation");
      const std::int64_t number = std::stoll("0" + before_that_);
      value_.references.insert(number);
      if (key_ == "/Kids") ++value_.kids;
    }
    if (depth_ == 1 && word.starts_with("/") && !before_.starts_with("/")) key_ = word;
    if (depth_ == 1 && key_ != word) value_.entries[key_].append(word).append(" ");
    before_that_ = std::exchange(before_, std::string(word));
    if (depth_ == 1 && key_ != word && word.starts_with("/")) before_.clear();
  }

  Reader& reader_;
  Value& value_;
  int depth_ = 0;
  std::string key_;
  std::string before_;
  std::string before_that_;
};

std::int64_t NumberIn(const Value& value, std::string_view key) {
  const auto found = value.entries.find(key);
  Require(found != value.entries.end(), "no " + std::string(key));
  return std::stoll(found->second);
}

bool IsOfType(const Value& value, std::string_view type) {
  const auto found = value.entries.find("/Type");
  return found != value.entries.end() && found->second == std::string(type) + " ";
}

/// The offsets of a cross-reference table, by object number from 1, with the trailer behind it
/// read.
std::map<std::int64_t, std::int64_t> ReadTable(Reader& reader, std::string_view end) {
  const std::string line(end);
  reader.Expect("0 ");
  const std::int64_t size = reader.Number();
  reader.Expect(line + "0000000000 65535 f " + (line.size() == 1 ? line : "\r\n"));
  std::map<std::int64_t, std::int64_t> offsets;
  for (std::int64_t number = 1; number < size; ++number) {
    const std::size_t before = reader.at();
    offsets[number] = reader.Number();
    Require(reader.at() == before + 10, "an entry does not have ten digits");
    reader.Expect(" 00000 n " + (line.size() == 1 ? line : "\r\n"));
  }
  reader.Expect("trailer" + line);
  return offsets;
}

/// The nodes and pages of a tree, by object number.
class PageTree {
 public:
  void Add(std::int64_t number, const Value& value) {
    const bool page = IsOfType(value, "/Page");
    if (!page && !IsOfType(value, "/Pages")) return;
    Node& node = nodes_[number];
    node.count = page ? 1 : NumberIn(value, "/Count");
    node.kids = value.kids;
    if (value.entries.contains("/Parent")) node.parent = NumberIn(value, "/Parent");
    pages_ += page ? 1 : 0;
  }

  /// Every node has the children that name it as their parent, and one that has none all pages.
  void Check() const {
    std::map<std::int64_t, Node> found;
    for (const auto& [number, node] : nodes_) {
      found[node.parent].count += node.count;
      ++found[node.parent].kids;
    }
    Require(found[0].kids == 1 && found[0].count == pages_, "/Count is not the number of pages");
    for (const auto& [number, node] : nodes_) {
      const bool whole =
          node.kids == found[number].kids && (node.kids == 0 || node.count == found[number].count);
      Require(whole, "node " + std::to_string(number) + " does not have the pages that name it");
    }
  }

 private:
  struct Node {
    std::int64_t parent = 0;
    std::int64_t count = 0;
    std::int64_t kids = 0;
  };
  std::map<std::int64_t, Node> nodes_;
  std::int64_t pages_ = 0;
};

void ReadConforming(std::string_view file) {
  Reader reader(file);
  reader.Expect("%PDF-1.");
  Require(reader.Number() <= 4, "an unknown version");
  reader.Expect("\n%\xE2\xE3\xCF\xD3\n");
  std::map<std::int64_t, std::int64_t> found;
  std::set<std::int64_t> references;
  PageTree tree;
  while (!reader.StartsWith("xref\n")) {
    const auto offset = static_cast<std::int64_t>(reader.at());
    const std::int64_t number = reader.Number();
    const std::string what = "object " + std::to_string(number);
    reader.Expect(" 0 obj\n");
    Require(found.emplace(number, offset).second, what + " is there twice");
    Value value;
    ValueReader(reader, value).Read();
    if (reader.StartsWith("\nstream\n")) {
      reader.Skip(8);
      reader.Skip(static_cast<std::size_t>(NumberIn(value, "/Length")));
      reader.Expect("\nendstream");
    }
    reader.Expect("\nendobj\n");
    references.insert(value.references.begin(), value.references.end());
    tree.Add(number, value);
  }
  tree.Check();
  const auto table = static_cast<std::int64_t>(reader.at());
  reader.Expect("xref\n");
  Require(ReadTable(reader, "\n") == found, "the cross-reference table is not that of the objects");
  Value trailer;
  ValueReader(reader, trailer).Read();
  Require(NumberIn(trailer, "/Size") == static_cast<std::int64_t>(found.size()) + 1, "wrong /Size");
  references.insert(trailer.references.begin(), trailer.references.end());
  for (const std::int64_t number : references) {
    Require(found.contains(number), "object " + std::to_string(number) + " is missing");
  }
  Require(references.size() == found.size(), "an object that nothing refers to");
  reader.Expect("\nstartxref\n");
  Require(reader.Number() == table, "wrong startxref");
  reader.Expect("\n%%EOF\n");
  Require(reader.at() == file.size(), "something behind the end");
}

/// Reads a stream up to its end, and the object behind it, which is its length.
void ReadClassicStream(Reader& reader, std::int64_t number, bool lines_count) {
  const std::string end = "\r\nendstream\r\nendobj\r\n" + std::to_string(number + 1) + " 0 obj\r\n";
  const std::size_t begin = reader.at();
  for (;;) {
    reader.Until(end);
    const std::size_t stop = reader.at() - end.size();
    const std::size_t after = reader.at();
    const std::int64_t stated = reader.Number();
    std::size_t length = stop - begin;
    for (std::size_t at = begin; !lines_count && at < stop; ++at) {
      if (reader.file().substr(at, 2) == "\r\n") length -= 2;
    }
    if (stated == static_cast<std::int64_t>(length)) return reader.GoTo(stop);
    Require(lines_count, "the length of object " + std::to_string(number) + " is wrong");
    reader.GoTo(after);  // the data look like an end
  }
}

void ReadClassic(std::string_view file) {
  Reader reader(file);
  std::map<std::int64_t, std::int64_t> found;
  std::int64_t counted = 0;  // without line ends
  std::int64_t pages = 0;
  std::int64_t kids = -1;
  bool data = false;
  std::string_view type;
  std::int64_t object = 0;
  for (std::string_view line = reader.Until("\r\n"); line != "xref"; line = reader.Until("\r\n")) {
    if (line.ends_with(" 0 obj")) {
      object = Reader(line).Number();
      Require(found.emplace(object, counted).second, "object " + std::to_string(object) + " twice");
      data = false;
    }
    if (line.starts_with("/Filter ")) data = true;
    if (line.starts_with("/Type ")) type = line;
    if (line == "/Type /Page") ++pages;
    if (type == "/Type /Pages" && line.starts_with("/Count "))
      kids = Reader(line.substr(7)).Number();
    counted += static_cast<std::int64_t>(line.size());
    if (line != "stream") continue;
    const std::size_t begin = reader.at();
    ReadClassicStream(reader, object, data);
    std::string_view stream = file.substr(begin, reader.at() - begin);
    counted += static_cast<std::int64_t>(stream.size());
    for (std::size_t at = 0; !data && (at = stream.find("\r\n", at)) != std::string_view::npos;
         at += 2) {
      counted -= 2;
    }
    reader.Expect("\r\n");
  }
  Require(pages == kids, "/Count is not the number of pages");
  const auto offsets = ReadTable(reader, "\r\n");
  Require(offsets.size() == found.size(), "as many entries as objects");
  for (const auto& [number, offset] : offsets) {
    Require(found.contains(number), "object " + std::to_string(number) + " is missing");
    Require(offset == 0 || offset == found[number],
            "the offset of object " + std::to_string(number));
  }
  reader.Until("startxref\r\n");
  Require(reader.Number() == counted, "wrong startxref");
  reader.Expect("\r\n%%EOF\r\n");
  Require(reader.at() == file.size(), "something behind the end");
}

void ReadPs(std::string_view file, bool conforming) {
  const std::string_view end = conforming ? "\n" : "\r\n";
  Reader reader(file);
  reader.Expect("%!PS-Adobe-3.0");
  reader.Expect(end);
  std::int64_t stated = -1;
  std::int64_t pages = 0;
  std::int64_t saved = 0;
  while (reader.at() < file.size()) {
    const std::string_view line = reader.Until(end);
    if (line.starts_with("%%Pages: ") && pages == 0) stated = Reader(line.substr(9)).Number();
    if (line.starts_with("%%Page: ")) ++pages;
    if (!conforming) continue;
    Require(line.size() <= 255, "a line of more than 255 characters");
    for (const char c : line) Require(c >= ' ' && c <= '~', "a byte that is not clean 7-bit text");
    if (line.starts_with("%%Page: ")) {
      std::string expected = "%%Page: ";
      expected += std::to_string(pages);
      expected += ' ';
      expected += std::to_string(pages);
      Require(line == expected, "pages out of order");
    }
    if (line == "/pgsave save def") ++saved;
    if (line == "pgsave restore end") --saved;
    Require(saved == 0 || saved == 1, "save and restore do not match");
  }
  Require(stated == pages, "%%Pages is not the number of pages");
  Require(file.ends_with("%%EOF" + std::string(end)), "no end");
  Require(saved == 0, "save and restore do not match");
}

template <class Read>
std::string FaultIn(const Read& read) {
  try {
    read();
  } catch (const std::exception& fault) {
    return fault.what();
  }
  return {};
}

}  // namespace

std::string FaultOfPdf(std::string_view file) {
  return FaultIn([&] { ReadConforming(file); });
}
std::string FaultOfClassicPdf(std::string_view file) {
  return FaultIn([&] { ReadClassic(file); });
}
std::string FaultOfPs(std::string_view file, bool conforming) {
  return FaultIn([&] { ReadPs(file, conforming); });
}

}  // namespace vellumark::fuzz
