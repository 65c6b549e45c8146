// SPDX-License-Identifier: MIT
#include "tools/options.h"

#include <CLI/CLI.hpp>
#include <filesystem>
#include <functional>
#include <iostream>
#include <sstream>
#include <string_view>

#include "tools/failure.h"
#include "tools/file_name.h"
#include "tools/option_pages.h"
#include "tools/option_values.h"
#include "tools/type_scale.h"
#include "tools/utf8_text.h"

namespace vellumark::tools {
namespace {

constexpr std::string_view kFooter =
    "Exit status: 0 if the document was written, 1 if it was written without one of its pictures,\n"
    "2 if it was not written; standard error says why.";

/// Options as typed, before their values are checked. The texts are the defaults.
struct RawOptions {
  std::string paper = "a4";
  std::string orientation = "portrait";
  std::string margins = "64";
  std::string font = "times";
  std::string size = "11";
  std::string page_color = "white";
  std::string encoding;
  std::string format;
  std::vector<std::string> font_files;
  std::vector<std::string> fallback_fonts;
};

std::string VersionText(std::string_view commit) {
  std::string text = "vellumark " VELLUMARK_VERSION_STRING;
  if (!commit.empty()) text.append(" (commit ").append(commit).append(")");
  return text;
}

std::string OneOf(std::string_view what, std::string_view names) {
  return std::string(what) + ": " + std::string(names);
}

/// Help, broken into lines that fit beside the names of the options.
std::string Wrapped(const std::string& help) {
  constexpr std::size_t kColumns = 70;
  std::string wrapped;
  std::size_t column = 0;
  std::istringstream words(help);
  for (std::string word; words >> word; column += word.size()) {
    const bool fits = column + 1 + word.size() <= kColumns;
    if (!wrapped.empty()) wrapped += fits ? ' ' : '\n';
    column = fits ? column + 1 : 0;
    wrapped += word;
  }
  return wrapped;
}

void AddLayoutOptions(OptionTable& table, RawOptions& raw, Options& options) {
  CLI::App& app = table.app;
  const auto add = [&](const std::string& name, std::string& value, const std::string& help,
                       const char* type) {
    app.add_option("--" + name, value, Wrapped(help + " [default: " + value + "]"))
        ->type_name(type);
  };
  const auto add_one_of = [&](const std::string& name, std::string& value, std::string_view help,
                              std::string_view names, const std::string& standard) {
    table.values[name] = names;
    app.add_option("--" + name, value, Wrapped(OneOf(help, names) + " [default: " + standard + "]"))
        ->type_name("NAME");
  };
  add_one_of("format", raw.format, "Format of the output", kFormatNames,
             "by the ending of the output, otherwise pdf");
  add_one_of("paper", raw.paper, "Paper size", kPaperNames, raw.paper);
  add_one_of("orientation", raw.orientation, "Orientation of the paper", kOrientationNames,
             raw.orientation);
  add("margins", raw.margins, "Margins in points (1/72 inch), one number or LEFT,TOP,RIGHT,BOTTOM",
      "POINTS");
  table.values["page-color"] = kColorNames;
  add("page-color", raw.page_color, OneOf("Color of the page, #rrggbb or one of", kColorNames),
      "COLOR");
  add_one_of("font", raw.font, "Font of text and titles", kFontNames, raw.font);
  app.add_option("--font-file", raw.font_files,
                 Wrapped("TrueType or OpenType file for text and titles, once for each style: "
                         "[STYLE=]FILE with the style one of " +
                         std::string(kStyleNames) +
                         "; FILE#1 is the second face of a collection [default: none]"))
      ->type_name("FILE")
      ->expected(1)
      ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
  app.add_option("--fallback-font", raw.fallback_fonts,
                 Wrapped("File that shows what the fonts lack; may be repeated [default: fonts of "
                         "the system that have it]"))
      ->type_name("FILE")
      ->expected(1)
      ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
  add("size", raw.size, "Size of the text in points, 8 to 72", "POINTS");
  add_one_of("encoding", raw.encoding, "Picture encoding", kEncodingNames,
             "original, which keeps a JPG file as it is; with --classic ascii85");
  app.add_option(
         "--picture-memory", options.picture_memory,
         Wrapped("Memory that decoding a picture may take in MiB, 1 to 2047; a picture that "
                 "needs more is left out [default: 256]"))
      ->type_name("MIB");
  app.add_flag("--classic", options.classic,
               Wrapped("Write a classic document, whose bytes never change, instead of one that "
                       "every reader accepts"));
  bool& justify = options.style.justify;
  app.add_flag_callback(
      "--justify", [&justify] { justify = true; },
      "Set paragraphs justified, flush on both sides [default]");
  app.add_flag_callback(
      "--no-justify", [&justify] { justify = false; }, "Set paragraphs ragged on the right");
}

void AddKindOptions(CLI::App& app, Options& options) {
  TextKind& kind = options.kind;
  CLI::Option* const plain = app.add_flag_callback(
      "--plain", [&kind] { kind = TextKind::Plain; },
      Wrapped("Set the text as it stands, in Courier [default for standard input and names that "
              "end in .txt, .log, .diff or .patch]"));
  app.add_flag_callback(
         "--markdown", [&kind] { kind = TextKind::Markdown; },
         "Read the text as Markdown [default otherwise]")
      ->excludes(plain);
}

/// What the document has besides the texts.
void AddPartOptions(CLI::App& app, Options& options) {
  app.add_flag("--toc", options.contents,
               Wrapped("Put a table of contents in front, of the titles down to the third level"));
  CLI::Option* const cover = app.add_flag(
      "--cover", options.cover, Wrapped("Put a cover page in front, with title, author and date"));
  app.add_option("--date", options.date, Wrapped("Date on the cover [default: today]"))
      ->type_name("TEXT")
      ->needs(cover);
  app.add_option("--header", options.heads.header,
                 Wrapped("Text above every page, in which {page} stands for the page's number, "
                         "{pages} for the number of pages and {{ for a brace [default: none]"))
      ->type_name("TEXT");
  app.add_option("--footer", options.heads.footer,
                 Wrapped("The same below every page [default: " + options.heads.footer +
                         "; with --classic the library's notice]"))
      ->type_name("TEXT");
}

/// A classic document is as earlier versions made it.
void CheckClassic(const CLI::App& app, const Options& options) {
  if (!options.classic) return;
  for (const char* const name :
       {"--toc", "--cover", "--date", "--header", "--footer", "--font-file", "--fallback-font"}) {
    if (app.count(name) == 0) continue;
    throw Failure(std::string(name) + ": a classic document does not have it; leave --classic out");
  }
}

/// What the program prints about itself, whether there are inputs or not.
void AddPageOptions(OptionTable& table) {
  table.app.add_flag_callback(
      "--man", [&table] { throw CLI::CallForVersion(ManualPage(table), 0); },
      "Print the manual page and exit, for man -l -");
  table.values["completion"] = kShellNames;
  table.app
      .add_option_function<std::string>(
          "--completion",
          [&table](const std::string& shell) {
            if (std::string(", ").append(kShellNames).append(", ").find(", " + shell + ", ") ==
                std::string::npos) {
              throw Failure("--completion: \"" + shell +
                            "\" is not one of: " + std::string(kShellNames));
            }
            throw CLI::CallForVersion(Completion(table, shell), 0);
          },
          Wrapped(OneOf("Print what completes command lines in a shell and exit", kShellNames)))
      ->type_name("SHELL");
}

void AddPropertyOptions(CLI::App& app, Options& options) {
  const auto add = [&app](const char* name, std::string& value, const std::string& help,
                          const std::string& standard) {
    app.add_option(name, value, Wrapped(help + " [default: " + standard + "]"))->type_name("TEXT");
  };
  Properties& properties = options.properties;
  add("--title", properties.title, "Title property",
      "the first title, or the name of a plain text");
  add("--author", properties.author, "Author property", "none");
  add("--creator", properties.creator, "Creator property, the origin of the text",
      properties.creator);
  add("--producer", properties.producer, "Producer property", properties.producer);
  add("--subject", properties.subject, "Subject property", "none");
  add("--keywords", properties.keywords, "Keywords property", "none");
}

template <typename Value>
Value Taken(const std::optional<Value>& value, const std::string& option, const std::string& typed,
            std::string_view expected) {
  if (value) return *value;
  throw Failure(option + ": \"" + typed + "\" is not one of: " + std::string(expected));
}

void TakeEncoding(const RawOptions& raw, Options& options) {
  EncodingConstants& encoding = options.style.encoding;
  encoding = options.classic ? EncodingConstants::ASCII85 : EncodingConstants::Original;
  if (raw.encoding.empty()) return;
  encoding = Taken(ParseEncoding(raw.encoding), "--encoding", raw.encoding, kEncodingNames);
  if (options.classic && encoding == EncodingConstants::Original) {
    throw Failure("--encoding: a classic document takes no original files; leave --classic out");
  }
}

void TakeValues(const RawOptions& raw, Options& options) {
  options.paper = Taken(ParsePaper(raw.paper), "--paper", raw.paper, kPaperNames);
  options.orientation =
      Taken(ParseOrientation(raw.orientation), "--orientation", raw.orientation, kOrientationNames);
  TextStyle& style = options.style;
  style.font = Taken(ParseFont(raw.font), "--font", raw.font, kFontNames);
  style.page.page_color = Taken(ParseColor(raw.page_color), "--page-color", raw.page_color,
                                OneOf("#rrggbb", kColorNames));
  TakeEncoding(raw, options);
  const auto margins = ParseMargins(raw.margins);
  if (!margins) {
    throw Failure("--margins: \"" + raw.margins +
                  "\" is not one whole number or four (LEFT,TOP,RIGHT,BOTTOM) from 0 to 2000");
  }
  style.page.margins = *margins;
  const auto size = ParseNumber(raw.size, kSmallestSize, kLargestSize);
  if (!size) throw Failure("--size: \"" + raw.size + "\" is not a whole number from 8 to 72");
  style.size = *size;
}

void CheckPictureMemory(int mebibytes) {
  constexpr int kMost = 2047;
  if (mebibytes >= 1 && mebibytes <= kMost) return;
  throw Failure("--picture-memory: " + std::to_string(mebibytes) +
                " is not a whole number from 1 to 2047");
}

void CheckTexts(const Options& options) {
  const Properties& properties = options.properties;
  const std::string date = options.date.value_or("");
  for (const std::string* text : {&properties.title, &properties.author, &properties.creator,
                                  &properties.producer, &properties.subject, &properties.keywords,
                                  &date, &options.heads.header, &options.heads.footer}) {
    if (FirstInvalidByte(*text)) throw Failure("a text on the command line is not UTF-8");
  }
}

/// The format that the ending of an output stands for: PDF if there is none.
Format FormatOfEnding(const std::filesystem::path& output) {
  const std::string ending = TextOf(output.extension());
  if (ending.empty()) return Format::Pdf;
  if (const auto format = ParseFormat(std::string_view(ending).substr(1))) return *format;
  throw Failure("-o: \"" + TextOf(output) +
                "\" does not end in .pdf or .ps; add --format pdf or --format ps to use that name");
}

/// Settles format and output; each follows from the other if only one was given.
void TakeOutput(const RawOptions& raw, bool output_given, Options& options) {
  if (!raw.format.empty()) {
    options.format = Taken(ParseFormat(raw.format), "--format", raw.format, kFormatNames);
  } else if (output_given) {
    options.format = FormatOfEnding(PathOf(options.output));
  }
  if (output_given) return;
  const std::string& input = options.inputs.front();
  if (options.inputs.size() > 1) throw Failure("several inputs need an output: add -o FILE");
  if (input == "-") throw Failure("standard input needs an output: add -o FILE");
  std::filesystem::path path = PathOf(input);
  const char* const ending = options.format == Format::Ps ? ".ps" : ".pdf";
  if (path.extension() == ending) {
    throw Failure(input + " would be written over: name another output with -o");
  }
  options.output = TextOf(path.replace_extension(ending));
}

}  // namespace

std::optional<Options> ParseOptions(int argc, const char* const* argv, std::string_view commit) {
  Options options;
  options.properties.creator = "vellumark";
  options.properties.producer = "Vellumark " VELLUMARK_VERSION_STRING;
  RawOptions raw;
  OptionTable table;
  CLI::App& app = table.app;
  app.name("vellumark");
  app.description("Typesets Markdown or plain text as a PDF or PostScript document.");
  app.footer(std::string(kFooter));
  app.set_version_flag("--version", VersionText(commit), "Print the version and exit");
  app.set_help_flag("-h,--help", "Print this help and exit");
  app.add_option(
         "INPUT", options.inputs,
         "Text files in UTF-8, each of which begins on a page of its own; - reads standard\n"
         "input")
      ->required()
      ->type_name(" ");
  AddKindOptions(app, options);
  app.add_option("-o,--output", options.output,
                 "File to write; - is standard output\n[default: INPUT with the ending .pdf or "
                 ".ps, beside it]")
      ->type_name("FILE");
  AddLayoutOptions(table, raw, options);
  AddPropertyOptions(app, options);
  AddPartOptions(app, options);
  AddPageOptions(table);
  try {
    app.parse(argc, argv);
  } catch (const CLI::Success& answered) {
    app.exit(answered, std::cout, std::cerr);
    return std::nullopt;
  } catch (const CLI::ParseError& error) {
    throw Failure(std::string(error.what()) + "; see vellumark --help");
  }
  TakeValues(raw, options);
  CheckPictureMemory(options.picture_memory);
  CheckTexts(options);
  CheckClassic(app, options);
  for (const std::string& typed : raw.font_files) options.fonts.SetFile(typed);
  options.fonts.Check();
  for (const std::string& typed : raw.fallback_fonts) options.fonts.AddFallback(typed);
  options.style.has_cover = options.cover;
  options.style.has_contents = options.contents;
  options.title_given = app.count("--title") > 0;
  TakeOutput(raw, app.count("--output") > 0, options);
  return options;
}

}  // namespace vellumark::tools
