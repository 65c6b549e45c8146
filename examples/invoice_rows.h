// SPDX-License-Identifier: MIT
//
// The rows of an invoice from a CSV file in UTF-8, and amounts of money as text.
//
//     for (const Row& row : ReadRows("invoice.csv")) sum += row.Amount();
//     Money(sum)    // "6,532.63"
#pragma once

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <regex>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace vellumark::examples {

struct Row {
  std::int64_t count = 0;
  std::string description;
  std::int64_t cents = 0;  // of one

  [[nodiscard]] std::int64_t Amount() const { return count * cents; }
};

/// Cents as "1,234.50".
inline std::string Money(std::int64_t cents) {
  const std::string digits = std::to_string(std::abs(cents) / 100);
  std::string text = cents < 0 ? "-" : "";
  for (std::size_t i = 0; i < digits.size(); ++i) {
    if (i > 0 && (digits.size() - i) % 3 == 0) text += ',';
    text += digits[i];
  }
  const std::string rest = std::to_string(100 + std::abs(cents) % 100);
  return text + '.' + rest.substr(1);
}

/// A tenth of an amount, to the nearest cent; half a cent is rounded away from 0.
inline std::int64_t Tenth(std::int64_t cents) { return (cents + (cents < 0 ? -5 : 5)) / 10; }

struct Record {
  int line = 1;  // where it ends in the file
  std::vector<std::string> fields;
};

/// The records of a CSV file; a field in quotation marks may have commas, lines and, twice, a
/// quotation mark. Empty lines are skipped.
inline std::vector<Record> Records(std::string_view text) {
  std::vector<Record> records;
  std::vector<std::string> fields(1);
  bool quoted = false;
  int line = 1;
  const auto end_record = [&] {
    if (fields.size() > 1 || !fields[0].empty()) records.push_back({line, fields});
    fields.assign(1, {});
  };
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    if (c == '"' && quoted && text.substr(i + 1).starts_with('"')) {
      fields.back() += text[++i];
    } else if (c == '"') {
      quoted = !quoted;
    } else if (c == ',' && !quoted) {
      fields.emplace_back();
    } else if (c == '\n' && !quoted) {
      end_record();
    } else if (c != '\r' || quoted) {
      fields.back() += c;
    }
    if (c == '\n') ++line;
  }
  end_record();
  return records;
}

/// Throws std::runtime_error, with the file and the line, if the file cannot be read, has no column
/// quantity, description or unit price, or a number is none.
inline std::vector<Row> ReadRows(const std::string& file) {
  std::ifstream stream(file, std::ios::binary);
  if (!stream) throw std::runtime_error(file + ": it cannot be read");
  std::string text(std::istreambuf_iterator<char>(stream), {});
  constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
  if (text.starts_with(kByteOrderMark)) text.erase(0, kByteOrderMark.size());
  std::vector<Record> records = Records(text);
  if (records.empty()) records.emplace_back();

  const auto column = [&](const char* name) {
    const std::vector<std::string>& names = records[0].fields;
    const auto found = std::find(names.begin(), names.end(), name);
    if (found == names.end()) throw std::runtime_error(file + ": it has no column " + name);
    return static_cast<std::size_t>(found - names.begin());
  };
  const std::size_t count = column("quantity");
  const std::size_t description = column("description");
  const std::size_t price = column("unit price");

  std::vector<Row> rows;
  for (auto record = records.begin() + 1; record != records.end(); ++record) {
    record->fields.resize(records[0].fields.size());
    const auto number = [&](std::size_t field, const char* name, const char* form) {
      const std::string& digits = record->fields[field];
      std::smatch parts;
      if (std::regex_match(digits, parts, std::regex(form))) return parts;
      std::string why = file;
      why.append(":").append(std::to_string(record->line)).append(": not a ").append(name);
      throw std::runtime_error(why.append(": '").append(digits).append("'"));
    };
    Row row{.description = record->fields[description]};
    row.count = std::stoll(number(count, "count", R"(\d{1,6})")[0]);
    const std::smatch parts = number(price, "price", R"((-?)(\d{1,7})(\.\d{1,2})?)");
    const std::string fraction = (parts[3].matched ? parts[3].str().substr(1) : "") + "00";
    row.cents = std::stoll(parts[2].str() + fraction.substr(0, 2));
    if (parts[1].length() > 0) row.cents = -row.cents;
    rows.push_back(row);
  }
  return rows;
}

}  // namespace vellumark::examples
