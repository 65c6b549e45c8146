// SPDX-License-Identifier: MIT
#include "fonts/cid_keyed_cff.h"

#include <algorithm>
#include <initializer_list>
#include <string>

#include <vellumark/run_time_error.h>

namespace vellumark::fonts {
namespace {

using Bytes = std::span<const std::uint8_t>;

[[noreturn]] void Damaged() { throw RunTimeError(RunTimeError::TypeMismatch); }

std::size_t NumberAt(Bytes bytes, std::size_t at, std::size_t size) {
  if (size > 4 || at > bytes.size() || bytes.size() - at < size) Damaged();
  std::size_t number = 0;
  for (std::size_t i = 0; i < size; ++i) number = number << 8 | bytes[at + i];
  return number;
}

/// An INDEX: its objects, and where it ends.
struct Index {
  std::size_t count = 0;
  std::size_t end = 0;
  std::size_t offset_size = 0;
  std::size_t offsets = 0;
  Bytes table;

  Index(Bytes bytes, std::size_t begin) : table(bytes) {
    count = NumberAt(bytes, begin, 2);
    end = begin + 2;
    if (count == 0) return;
    offset_size = NumberAt(bytes, begin + 2, 1);
    offsets = begin + 3;
    if (offset_size < 1 || offset_size > 4) Damaged();
    end = Data() + Offset(count);
    if (end > bytes.size()) Damaged();
  }

  [[nodiscard]] Bytes At(std::size_t i) const {
    const std::size_t begin = Offset(i);
    const std::size_t stop = Offset(i + 1);
    if (stop < begin || Data() + stop > end) Damaged();
    return table.subspan(Data() + begin, stop - begin);
  }

 private:
  [[nodiscard]] std::size_t Offset(std::size_t i) const {
    const std::size_t offset = NumberAt(table, offsets + i * offset_size, offset_size);
    if (offset > table.size()) Damaged();  // sums with a greater one would wrap in 32 bits
    return offset;
  }
  /// Offsets count from the byte before the data.
  [[nodiscard]] std::size_t Data() const { return offsets + (count + 1) * offset_size - 1; }
};

// Operators of a DICT.
constexpr int kFontBox = 5;
constexpr int kCharset = 15;
constexpr int kCharStrings = 17;
constexpr int kPrivate = 18;
constexpr int kEscape = 12;
constexpr int kFontMatrix = 0x0C07;
constexpr int kCidCount = 0x0C22;
constexpr int kFontDicts = 0x0C24;
constexpr int kFontDictSelect = 0x0C25;

/// An operator of a DICT with the bytes of its operands, and those that are whole numbers.
struct Entry {
  int op = 0;
  Bytes operands;
  std::vector<std::int64_t> numbers;

  [[nodiscard]] std::size_t Number(std::size_t i) const {
    if (i >= numbers.size() || numbers[i] < 0) Damaged();
    return static_cast<std::size_t>(numbers[i]);
  }
};

/// Reads an operand's number, and returns how many bytes it has.
std::size_t ReadOperand(Bytes dict, std::size_t at, std::int64_t& number) {
  const int first = dict[at];
  const auto byte = [&](std::size_t i) { return static_cast<int>(NumberAt(dict, at + i, 1)); };
  number = 0;
  if (first >= 32 && first <= 246) {
    number = first - 139;
    return 1;
  }
  if (first >= 247 && first <= 254) {
    number =
        first <= 250 ? (first - 247) * 256 + byte(1) + 108 : -(first - 251) * 256 - byte(1) - 108;
    return 2;
  }
  if (first == 28) {
    number = static_cast<std::int16_t>(NumberAt(dict, at + 1, 2));
    return 3;
  }
  if (first == 29) {
    number = static_cast<std::int32_t>(static_cast<std::uint32_t>(NumberAt(dict, at + 1, 4)));
    return 5;
  }
  if (first != 30) Damaged();
  std::size_t size = 1;  // a real number ends with the digit F
  while (true) {
    const int digits = byte(size++);
    if ((digits & 0xF) == 0xF || digits >> 4 == 0xF) return size;
  }
}

std::vector<Entry> EntriesOf(Bytes dict) {
  std::vector<Entry> entries;
  Entry entry;
  std::size_t begin = 0;
  for (std::size_t at = 0; at < dict.size();) {
    if (dict[at] <= 21) {
      entry.operands = dict.subspan(begin, at - begin);
      entry.op = dict[at++];
      if (entry.op == kEscape) entry.op = kEscape << 8 | static_cast<int>(NumberAt(dict, at++, 1));
      entries.push_back(std::move(entry));
      entry = {};
      begin = at;
    } else {
      at += ReadOperand(dict, at, entry.numbers.emplace_back());
    }
  }
  return entries;
}

const Entry* Find(const std::vector<Entry>& entries, int op) {
  const auto found = std::find_if(entries.begin(), entries.end(),
                                  [op](const Entry& entry) { return entry.op == op; });
  return found == entries.end() ? nullptr : &*found;
}

const Entry& Need(const std::vector<Entry>& entries, int op) {
  const Entry* const entry = Find(entries, op);
  if (entry == nullptr) Damaged();
  return *entry;
}

/// Bytes that are put together.
class Output {
 public:
  void Add(std::size_t number, int size) {
    for (int shift = 8 * (size - 1); shift >= 0; shift -= 8) {
      bytes_.push_back(static_cast<std::uint8_t>(number >> shift & 0xFFU));
    }
  }
  void Add(Bytes bytes) { bytes_.insert(bytes_.end(), bytes.begin(), bytes.end()); }

  /// A number as an operand, which always has five bytes.
  void AddOperand(std::size_t number) {
    Add(29, 1);
    Add(number, 4);
  }
  void AddOperator(int op) { Add(static_cast<std::size_t>(op), op > 0xFF ? 2 : 1); }
  void AddEntry(const Entry& entry) {
    Add(entry.operands);
    AddOperator(entry.op);
  }

  void AddIndex(const std::vector<Bytes>& objects) {
    Add(objects.size(), 2);
    if (objects.empty()) return;
    Add(4, 1);
    std::size_t offset = 1;
    Add(offset, 4);
    for (const Bytes object : objects) Add(offset += object.size(), 4);
    for (const Bytes object : objects) Add(object);
  }

  [[nodiscard]] std::size_t Size() const noexcept { return bytes_.size(); }
  [[nodiscard]] Bytes View() const noexcept { return bytes_; }
  [[nodiscard]] std::vector<std::uint8_t> Taken() noexcept { return std::move(bytes_); }

 private:
  std::vector<std::uint8_t> bytes_;
};

Bytes BytesOf(std::string_view text) {
  return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

/// Where the parts of the new table lie.
struct Places {
  std::size_t charset = 0;
  std::size_t select = 0;
  std::size_t dicts = 0;
  std::size_t glyphs = 0;
};

Output TopDict(const std::vector<Entry>& old, std::size_t registry, std::size_t cids,
               const Places& places) {
  constexpr int kRegistryOrderingSupplement = 0x0C1E;
  Output dict;
  dict.AddOperand(registry);
  dict.AddOperand(registry + 1);
  dict.AddOperand(0);
  dict.AddOperator(kRegistryOrderingSupplement);
  for (const int op : {kFontMatrix, kFontBox}) {
    if (const Entry* const entry = Find(old, op)) dict.AddEntry(*entry);
  }
  const auto add = [&](std::size_t number, int op) {
    dict.AddOperand(number);
    dict.AddOperator(op);
  };
  add(cids, kCidCount);
  add(places.charset, kCharset);
  add(places.select, kFontDictSelect);
  add(places.glyphs, kCharStrings);
  add(places.dicts, kFontDicts);
  return dict;
}

}  // namespace

std::vector<std::uint8_t> CidKeyedCff(Bytes table, std::span<const std::uint16_t> cids,
                                      std::string_view name) {
  const Index names(table, NumberAt(table, 2, 1));
  const Index tops(table, names.end);
  const Index strings(table, tops.end);
  const std::size_t body = strings.end;  // the shared subroutines, and all that follows
  if (tops.count != 1) Damaged();
  const std::vector<Entry> top = EntriesOf(tops.At(0));
  const std::size_t glyphs_at = Need(top, kCharStrings).Number(0);
  if (Index(table, glyphs_at).count != cids.size() || glyphs_at < body) Damaged();
  const Entry* const old_dicts = Find(top, kFontDicts);

  constexpr std::size_t kStandardStrings = 391;
  std::vector<Bytes> texts;
  for (std::size_t i = 0; i < strings.count; ++i) texts.push_back(strings.At(i));
  texts.push_back(BytesOf("Adobe"));
  texts.push_back(BytesOf("Identity"));
  const std::size_t registry = kStandardStrings + strings.count;
  const std::size_t cid_count = *std::max_element(cids.begin(), cids.end()) + std::size_t{1};

  // The head has the same size whatever the places are.
  Places places;
  const auto head = [&] {
    Output output;
    output.Add(0x01000404, 4);
    output.AddIndex({BytesOf(name)});
    const Output dict = TopDict(top, registry, cid_count, places);
    output.AddIndex({dict.View()});
    output.AddIndex(texts);
    return output;
  };
  const std::size_t moved = head().Size() - body;  // may wrap around; sums come out right
  const std::size_t tail = table.size() + moved;

  Output behind;
  const auto here = [&] { return tail + behind.Size(); };
  places.glyphs = glyphs_at + moved;
  places.charset = here();
  behind.Add(0, 1);
  for (const std::uint16_t cid : cids.subspan(1)) behind.Add(cid, 2);
  const auto add_private = [&](Output& dict, const Entry& entry) {
    const std::size_t size = entry.Number(0);  // 0 of a font without hints and subroutines
    if (size > 0 && entry.Number(1) < body) Damaged();
    dict.AddOperand(size);
    dict.AddOperand(size > 0 ? entry.Number(1) + moved : 0);
    dict.AddOperator(kPrivate);
  };
  std::vector<Output> dicts;
  if (old_dicts != nullptr) {
    const Index old(table, old_dicts->Number(0));
    for (std::size_t i = 0; i < old.count; ++i) {
      Output& dict = dicts.emplace_back();
      for (const Entry& entry : EntriesOf(old.At(i))) {
        if (entry.op == kPrivate) {
          add_private(dict, entry);
        } else {
          dict.AddEntry(entry);
        }
      }
    }
    places.select = Need(top, kFontDictSelect).Number(0) + moved;
  } else {
    add_private(dicts.emplace_back(), Need(top, kPrivate));
    places.select = here();
    behind.Add(0x03000100, 4);  // one range, from glyph 0 on, of dictionary 0
    behind.Add(0, 2);
    behind.Add(cids.size(), 2);
  }
  places.dicts = here();
  std::vector<Bytes> views;
  views.reserve(dicts.size());
  for (const Output& dict : dicts) views.push_back(dict.View());
  behind.AddIndex(views);

  Output whole = head();
  whole.Add(table.subspan(body));
  whole.Add(behind.View());
  return whole.Taken();
}

}  // namespace vellumark::fonts
