// SPDX-License-Identifier: MIT
#include "tools/options.h"

#include <CLI/CLI.hpp>
#include <filesystem>
#include <functional>
#include <iostream>
#include <string_view>

#include "tools/failure.h"
#include "tools/option_values.h"
#include "tools/type_scale.h"
#include "tools/utf8_text.h"

namespace vellumark::tools {
namespace {

constexpr std::string_view kFooter =
    "Options may stand before or after INPUT. Exit status: 0 when the document was written, 2 when "
    "it was not, with one line on standard error that says why.";

/// Options as typed, before their values are looked at. The texts are the defaults.
struct RawOptions {
  std::string paper = "a4";
  std::string orientation = "portrait";
  std::string margins = "64";
  std::string font = "times";
  std::string size = "11";
  std::string page_color = "white";
  std::string format = "pdf";
};

std::string OneOf(std::string_view what, std::string_view names) {
  return std::string(what) + ": " + std::string(names);
}

void AddLayoutOptions(CLI::App& app, RawOptions& raw, Options& options) {
  app.add_option("--paper", raw.paper, OneOf("Paper size", kPaperNames))
      ->type_name("NAME")
      ->capture_default_str();
  app.add_option("--orientation", raw.orientation, OneOf("How the paper lies", kOrientationNames))
      ->type_name("NAME")
      ->capture_default_str();
  app.add_option("--margins", raw.margins,
                 "Margins in points (1/72 inch): one number, or LEFT,TOP,RIGHT,BOTTOM")
      ->type_name("POINTS")
      ->capture_default_str();
  app.add_option("--page-color", raw.page_color,
                 OneOf("Colour of the paper, #rrggbb or a name", kColorNames))
      ->type_name("COLOR")
      ->capture_default_str();
  app.add_option("--font", raw.font, OneOf("Font of text and titles", kFontNames))
      ->type_name("NAME")
      ->capture_default_str();
  app.add_option("--size", raw.size, "Size of the text in points, 8 to 72")
      ->type_name("POINTS")
      ->capture_default_str();
  app.add_flag(
      "--justify,!--no-justify", options.style.justify,
      "Set paragraphs flush on both sides, or with --no-justify ragged [default: justify]");
}

void AddPropertyOptions(CLI::App& app, Options& options) {
  Properties& properties = options.properties;
  const auto add = [&app](const char* name, std::string& value, const char* help) {
    return app.add_option(name, value, help)->type_name("TEXT");
  };
  add("--title", properties.title, "Title property [default: the first heading]");
  add("--author", properties.author, "Author property [default: none]");
  add("--creator", properties.creator, "Creator property: the program the text comes from")
      ->capture_default_str();
  add("--producer", properties.producer, "Producer property")->capture_default_str();
  add("--subject", properties.subject, "Subject property [default: none]");
  add("--keywords", properties.keywords, "Keywords property [default: none]");
}

template <typename Value>
Value Taken(const std::optional<Value>& value, const std::string& option, const std::string& typed,
            std::string_view expected) {
  if (value) return *value;
  throw Failure(option + ": \"" + typed + "\" is none of: " + std::string(expected));
}

void TakeValues(const RawOptions& raw, Options& options) {
  options.paper = Taken(ParsePaper(raw.paper), "--paper", raw.paper, kPaperNames);
  options.orientation =
      Taken(ParseOrientation(raw.orientation), "--orientation", raw.orientation, kOrientationNames);
  TextStyle& style = options.style;
  style.font = Taken(ParseFont(raw.font), "--font", raw.font, kFontNames);
  style.page.page_color = Taken(ParseColor(raw.page_color), "--page-color", raw.page_color,
                                OneOf("#rrggbb", kColorNames));
  if (raw.format != "pdf") throw Failure("--format: \"" + raw.format + "\" is none of: pdf");
  const auto margins = ParseMargins(raw.margins);
  if (!margins) {
    throw Failure("--margins: \"" + raw.margins +
                  "\" is neither one nor four (LEFT,TOP,RIGHT,BOTTOM) whole numbers up to 2000");
  }
  style.page.margins = *margins;
  const auto size = ParseNumber(raw.size, kSmallestSize, kLargestSize);
  if (!size) throw Failure("--size: \"" + raw.size + "\" is no whole number from 8 to 72");
  style.size = *size;
}

void CheckTexts(const Properties& properties) {
  for (const std::string* text :
       {&properties.title, &properties.author, &properties.creator, &properties.producer,
        &properties.subject, &properties.keywords}) {
    if (FirstInvalidByte(*text)) throw Failure("a property on the command line is not UTF-8");
  }
}

/// The name of the output where none was given: beside the input.
std::string DefaultOutput(const std::string& input) {
  if (input == "-") throw Failure("reading standard input needs an output: -o FILE");
  std::filesystem::path path(input);
  if (path.extension() == ".pdf") throw Failure(input + " is a PDF already: name another with -o");
  path.replace_extension(".pdf");
  return path.string();
}

}  // namespace

std::optional<Options> ParseOptions(int argc, const char* const* argv) {
  Options options;
  options.properties.creator = "vellumark";
  options.properties.producer = "Vellumark " VELLUMARK_VERSION;
  RawOptions raw;
  CLI::App app("Typesets a text file with light Markdown as a PDF document.", "vellumark");
  app.footer(std::string(kFooter));
  app.set_version_flag("--version", "vellumark " VELLUMARK_VERSION, "Print the version and exit");
  app.set_help_flag("-h,--help", "Print this help and exit");
  app.add_option("INPUT", options.input, "Text file in UTF-8; - reads standard input")
      ->required()
      ->type_name("");
  app.add_option("-o,--output", options.output,
                 "File to write; - is standard output [default: INPUT with the ending .pdf]")
      ->type_name("FILE");
  app.add_option("--format", raw.format, "Format of the output: pdf")
      ->type_name("NAME")
      ->capture_default_str();
  AddLayoutOptions(app, raw, options);
  AddPropertyOptions(app, options);
  try {
    app.parse(argc, argv);
  } catch (const CLI::Success& answered) {
    app.exit(answered, std::cout, std::cerr);
    return std::nullopt;
  } catch (const CLI::ParseError& error) {
    throw Failure(std::string(error.what()) + "; see vellumark --help");
  }
  TakeValues(raw, options);
  CheckTexts(options.properties);
  options.title_given = app.count("--title") > 0;
  if (app.count("--output") == 0) options.output = DefaultOutput(options.input);
  return options;
}

}  // namespace vellumark::tools
