// SPDX-License-Identifier: MIT
#include "ps/prolog.h"

namespace vellumark::ps {

// A picture's data are read to their end behind the image, which takes no more than it needs: what
// is left would be executed. An ellipse is four Bézier segments, because a scaled circle needs a
// matrix that radii of 0 do not give; "q" is two of them. A font whose widths change must not keep
// the number by which interpreters know it, or they would take its glyphs from another's.
std::string_view Prolog() noexcept {
  return R"(/Vellumark 64 dict def
Vellumark begin
/bd{bind def}bind def
/C/setrgbcolor load def
/G/setgray load def
/H{3 array astore/c exch def}bd
/h{dup dup H}bd
/W/setlinewidth load def
/D{0 setdash}bd
/S/stroke load def
/B{gsave c aload pop setrgbcolor fill grestore stroke}bd
/L{newpath 4 2 roll moveto lineto stroke}bd
/R{newpath 4 2 roll moveto 1 index 0 rlineto neg 0 exch rlineto neg 0 rlineto closepath}bd
/V{newpath 2 copy moveto 6 2 roll curveto closepath}bd
/O{newpath 0 360 arc closepath}bd
/q{0 v .552285 mul u .447715 mul v u v rcurveto u .552285 mul 0 u v .447715 mul neg u v neg rcurveto}bd
/E{/v exch def/u exch def newpath exch u sub exch moveto q/u u neg def/v v neg def q closepath}bd
/A{newpath 4 index 4 index moveto arc closepath}bd
/f{scalefont setfont}bd
/T{moveto show}bd
/t/show load def
/J{/y exch def{dup type/stringtype eq{show}{y moveto}ifelse}forall}bd
/I{currentfile exch filter/s exch def s exch exec 1 index exch/DataSource exch put image s flushfile
grestore}bd
/N{exch 3 -1 roll findfont dup length 3 add dict begin
{1 index/FID eq 2 index/UniqueID eq or 2 index/XUID eq or{pop pop}{def}ifelse}forall
dup null eq{pop Encoding}if 256 array copy/Encoding exch def/Metrics 256 dict def
0 3 2 index length 1 sub{1 index exch 3 getinterval aload pop 1 index exch Metrics 3 1 roll put
Encoding 3 1 roll put}for pop currentdict end definefont def}bd
end)";
}

}  // namespace vellumark::ps
