// SPDX-License-Identifier: MIT
//
// languages [FOLDER]: writes FOLDER/languages.pdf and FOLDER/languages.ps, one page with the same
// sentence in twenty-one languages, in fonts that Debian has (fonts-noto-core, fonts-noto-cjk). A
// language whose font is missing is left out, with a note.
#include <array>
#include <iostream>
#include <map>
#include <string>
#include <string_view>

#include <vellumark/vellumark.h>

namespace {

using vellumark::FontNumberConstants;

/// The first sentence of the Universal Declaration of Human Rights.
struct Language {
  const char* name;
  const char* font;
  int face;
  const char* sentence;
};

constexpr const char* kSerif = "truetype/noto/NotoSerif-Regular.ttf";
constexpr const char* kCjk = "opentype/noto/NotoSansCJK-Regular.ttc";
constexpr int kJapanese = 0;
constexpr int kKorean = 1;
constexpr int kChinese = 2;

constexpr std::array<Language, 21> kLanguages = {{
    {"English", kSerif, 0, "All human beings are born free and equal in dignity and rights."},
    {"French", kSerif, 0,
     "Tous les êtres humains naissent libres et égaux en dignité et en droits."},
    {"Polish", kSerif, 0,
     "Wszyscy ludzie rodzą się wolni i równi pod względem swej godności i swych praw."},
    {"Turkish", kSerif, 0, "Bütün insanlar hür, haysiyet ve haklar bakımından eşit doğarlar."},
    {"Vietnamese", kSerif, 0,
     "Tất cả mọi người sinh ra đều được tự do và bình đẳng về nhân phẩm và quyền."},
    {"Russian", kSerif, 0, "Все люди рождаются свободными и равными в своем достоинстве и правах."},
    {"Bulgarian", kSerif, 0, "Всички хора се раждат свободни и равни по достойнство и права."},
    {"Greek", kSerif, 0,
     "Όλοι οι άνθρωποι γεννιούνται ελεύθεροι και ίσοι στην αξιοπρέπεια και τα δικαιώματα."},
    {"Armenian", "truetype/noto/NotoSerifArmenian-Regular.ttf", 0,
     "Բոլոր մարդիկ ծնվում են ազատ ու հավասար իրենց արժանապատվությամբ ու իրավունքներով։"},
    {"Georgian", "truetype/noto/NotoSerifGeorgian-Regular.ttf", 0,
     "ყველა ადამიანი იბადება თავისუფალი და თანასწორი თავისი ღირსებითა და უფლებებით."},
    {"Hebrew", "truetype/noto/NotoSerifHebrew-Regular.ttf", 0,
     "כל בני האדם נולדו בני חורין ושווים בערכם ובזכויותיהם."},
    {"Arabic", "truetype/noto/NotoNaskhArabic-Regular.ttf", 0,
     "يولد جميع الناس أحرارا متساوين في الكرامة والحقوق."},
    {"Urdu", "truetype/noto/NotoNaskhArabic-Regular.ttf", 0,
     "تمام انسان آزاد اور حقوق و عزت کے اعتبار سے برابر پیدا ہوئے ہیں۔"},
    {"Hindi", "truetype/noto/NotoSerifDevanagari-Regular.ttf", 0,
     "सभी मनुष्यों को गौरव और अधिकारों के मामले में जन्मजात स्वतन्त्रता और समानता प्राप्त है।"},
    {"Bengali", "truetype/noto/NotoSerifBengali-Regular.ttf", 0,
     "সমস্ত মানুষ স্বাধীনভাবে সমান মর্যাদা এবং অধিকার নিয়ে জন্মগ্রহণ করে।"},
    {"Tamil", "truetype/noto/NotoSerifTamil-Regular.ttf", 0,
     "மனிதப் பிறவியினர் சகலரும் சுதந்திரமாகவே பிறக்கின்றனர்."},
    {"Thai", "truetype/noto/NotoSerifThai-Regular.ttf", 0,
     "มนุษย์ทั้งหลายเกิดมามีอิสระและเสมอภาคกันในเกียรติศักดิ์และสิทธิ"},
    {"Amharic", "truetype/noto/NotoSerifEthiopic-Regular.ttf", 0,
     "የሰው ልጅ ሁሉ ሲወለድ ነጻና በክብርና በመብትም እኩልነት ያለው ነው።"},
    {"Chinese", kCjk, kChinese, "人人生而自由，在尊严和权利上一律平等。"},
    {"Japanese", kCjk, kJapanese,
     "すべての人間は、生まれながらにして自由であり、かつ、尊厳と権利とについて平等である。"},
    {"Korean", kCjk, kKorean,
     "모든 인간은 태어날 때부터 자유로우며 그 존엄과 권리에 있어 동등하다."},
}};

template <class AnyDocument>
bool WriteLanguages(const std::string& file) {
  using enum vellumark::FontEffectConstants;
  constexpr auto kRegular = vellumark::FontStyleConstants::Regular;
  constexpr std::int16_t kColumn = 110;
  constexpr std::int16_t kRow = 33;
  AnyDocument doc;
  doc.Conforming(true);
  doc.Title("Twenty-one languages");
  if (!doc.Create(file)) {
    std::cerr << "languages: " << doc.LastRefusal().sentence << '\n';
    return false;
  }
  doc.NewPage(50, 50, 50, 50, 255, 255, 255);
  std::map<std::pair<std::string_view, int>, FontNumberConstants> fonts;
  std::int16_t y = 0;
  for (const Language& language : kLanguages) {
    const auto [font, added] = fonts.try_emplace({language.font, language.face});
    if (added) {
      font->second = doc.LoadFont(std::string("/usr/share/fonts/") + language.font,
                                  static_cast<std::int16_t>(language.face));
      if (font->second == FontNumberConstants{}) {
        std::cerr << "languages: " << doc.LastRefusal().sentence << '\n';
      }
    }
    if (font->second == FontNumberConstants{}) continue;
    doc.AddFallbackFont(font->second);  // some fonts have no full stop
    doc.SetFont(FontNumberConstants::Helvetica, 10, kRegular, NoFontEffect);
    doc.SetPosition(0, static_cast<std::int16_t>(y + 2));
    doc.WriteText(language.name);
    doc.SetFont(font->second, 12, kRegular, NoFontEffect);
    doc.SetPosition(kColumn, y);
    if (!doc.WriteMultiText(language.sentence, 2)) {
      std::cerr << "languages: " << language.name << ": " << doc.LastRefusal().sentence << '\n';
      return false;
    }
    y = static_cast<std::int16_t>(y + kRow);
  }
  doc.Flush();
  const vellumark::Refusal refusal = doc.LastRefusal();
  if (refusal.reason != vellumark::RefusalReason::None || !doc.LostCharacters().empty()) {
    std::cerr << "languages: " << refusal.sentence << ' ' << doc.LostCharacters() << '\n';
    return false;
  }
  return true;
}

}  // namespace

int main(int argc, char** argv) {
  const std::string folder = argc > 1 ? argv[1] : ".";
  const bool pdf = WriteLanguages<vellumark::PDF>(folder + "/languages.pdf");
  const bool ps = WriteLanguages<vellumark::PS>(folder + "/languages.ps");
  return pdf && ps ? 0 : 1;
}
