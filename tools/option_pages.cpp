// SPDX-License-Identifier: MIT
#include "tools/option_pages.h"

#include <algorithm>
#include <utility>
#include <vector>

#include <vellumark/version.h>

namespace vellumark::tools {
namespace {

/// One option as a reader of the page or a shell needs it.
struct Entry {
  std::string letter;       // without the hyphen; empty if there is none
  std::string name;         // without the hyphens; empty for the inputs
  std::string argument;     // such as FILE; empty for a flag
  std::string description;  // on one line
  std::string values;       // with blanks between; empty if any text may be an argument

  [[nodiscard]] bool TakesFile() const { return argument == "FILE"; }

  /// The description without its list of values and its default.
  [[nodiscard]] std::string Short() const {
    const std::size_t end = std::min(description.find(" [default"), description.find(':'));
    return description.substr(0, end);
  }
};

std::string Replaced(std::string_view text, std::string_view from, std::string_view to) {
  std::string replaced;
  for (std::size_t at = text.find(from); at != std::string_view::npos; at = text.find(from)) {
    replaced.append(text.substr(0, at)).append(to);
    text.remove_prefix(at + from.size());
  }
  return replaced.append(text);
}

std::string ValuesOf(const OptionTable& table, const std::string& name) {
  const auto found = table.values.find(name);
  return found == table.values.end() ? std::string() : Replaced(found->second, ", ", " ");
}

std::vector<Entry> Entries(const OptionTable& table) {
  std::vector<Entry> entries;
  for (const CLI::Option* option : table.app.get_options()) {
    Entry entry;
    if (!option->get_snames().empty()) entry.letter = option->get_snames().front();
    if (!option->get_lnames().empty()) entry.name = option->get_lnames().front();
    if (option->get_items_expected_max() > 0) entry.argument = option->get_type_name();
    if (entry.name.empty()) entry.argument = option->get_name();
    entry.description = Replaced(option->get_description(), "\n", " ");
    entry.values = ValuesOf(table, entry.name);
    entries.push_back(std::move(entry));
  }
  return entries;
}

/// Text for the formatter of manual pages.
std::string Roff(std::string_view text) {
  std::string roff;
  for (const char c : text) {
    if (c == '\\') {
      roff += "\\e";
    } else if (c == '-') {
      roff += "\\-";
    } else {
      roff += c;
    }
  }
  return roff.starts_with('.') || roff.starts_with('\'') ? "\\&" + roff : roff;
}

std::string ManualEntry(const Entry& entry) {
  std::string text = ".TP\n";
  if (!entry.letter.empty()) text += "\\fB\\-" + entry.letter + "\\fR, ";
  if (!entry.name.empty()) text += "\\fB" + Roff("--" + entry.name) + "\\fR";
  if (!entry.argument.empty()) {
    if (!entry.name.empty()) text += ' ';
    text += "\\fI" + Roff(entry.argument) + "\\fR";
  }
  return text + '\n' + Roff(entry.description) + '\n';
}

std::string Words(const std::vector<Entry>& entries) {
  std::string words;
  for (const Entry& entry : entries) {
    if (!entry.letter.empty()) words += "-" + entry.letter + " ";
    if (!entry.name.empty()) words += "--" + entry.name + " ";
  }
  return words;
}

std::string Bash(const std::vector<Entry>& entries) {
  std::string text =
      "_vellumark() {\n"
      "  local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]}\n"
      "  COMPREPLY=()\n"
      "  case $previous in\n";
  for (const Entry& entry : entries) {
    if (entry.name.empty() || entry.argument.empty() || entry.TakesFile()) continue;
    text += "    " + (entry.letter.empty() ? "" : "-" + entry.letter + " | ") + "--" + entry.name +
            ") ";
    if (!entry.values.empty()) {
      text += "mapfile -t COMPREPLY < <(compgen -W '" + entry.values + "' -- \"$current\"); ";
    }
    text += "return ;;\n";
  }
  return text +
         "  esac\n"
         "  if [[ $current == -?* ]]; then\n"
         "    mapfile -t COMPREPLY < <(compgen -W '" +
         Words(entries) +
         "' -- \"$current\")\n"
         "  else\n"
         "    mapfile -t COMPREPLY < <(compgen -f -- \"$current\")\n"
         "  fi\n"
         "}\n"
         "complete -o filenames -F _vellumark vellumark\n";
}

std::string Zsh(const std::vector<Entry>& entries) {
  std::string text = "#compdef vellumark\n_arguments \\\n";
  for (const Entry& entry : entries) {
    if (entry.name.empty()) continue;
    const std::string name = "--" + entry.name;
    const std::string letter = "-" + entry.letter;
    text += "  ";
    if (!entry.letter.empty())
      for (const std::string_view part : std::initializer_list<std::string_view>{
               "'(", letter, " ", name, ")'{", letter, ",", name, "}"}) {
        text += part;
      }
    else
      text += "'" + name + "'";
    text += "'[" + Replaced(entry.Short(), "'", "'\\''") + "]";
    if (!entry.argument.empty()) {
      text += ":" + entry.argument + ":";
      if (entry.TakesFile()) text += "_files";
      if (!entry.values.empty()) text += "(" + entry.values + ")";
    }
    text += "' \\\n";
  }
  return text + "  '*:input:_files'\n";
}

std::string Fish(const std::vector<Entry>& entries) {
  std::string text;
  for (const Entry& entry : entries) {
    if (entry.name.empty()) continue;
    text += "complete -c vellumark";
    if (!entry.letter.empty()) text += " -s " + entry.letter;
    text += " -l " + entry.name;
    if (entry.TakesFile()) {
      text += " -r";
    } else if (!entry.argument.empty()) {
      text += " -x";
    }
    if (!entry.values.empty()) text += " -a '" + entry.values + "'";
    text += " -d '" + Replaced(entry.Short(), "'", "\\'") + "'\n";
  }
  return text;
}

}  // namespace

std::string ManualPage(const OptionTable& table) {
  std::string text =
      ".TH VELLUMARK 1 \"\" \"Vellumark " VELLUMARK_VERSION_STRING "\"\n.SH NAME\nvellumark \\- " +
      Roff(table.app.get_description()) +
      "\n.SH SYNOPSIS\n.B vellumark\n[\\fIOPTION\\fR]... \\fIINPUT\\fR...\n.SH DESCRIPTION\n" +
      Roff(table.app.get_description()) + "\n.SH OPTIONS\n";
  for (const Entry& entry : Entries(table)) text += ManualEntry(entry);
  std::string footer = Replaced(table.app.get_footer(), "\n", " ");
  const std::string_view heading = "Exit status: ";
  if (footer.starts_with(heading)) footer.erase(0, heading.size());
  return text + ".SH EXIT STATUS\n" + Roff(footer) + '\n';
}

std::string Completion(const OptionTable& table, std::string_view shell) {
  const std::vector<Entry> entries = Entries(table);
  if (shell == "zsh") return Zsh(entries);
  return shell == "fish" ? Fish(entries) : Bash(entries);
}

}  // namespace vellumark::tools
