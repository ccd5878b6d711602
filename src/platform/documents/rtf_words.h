#pragma once
// The control words the RTF reader acts on, by name.
#include <string_view>

namespace documents::rtf {

enum class Word {
    Skip, FieldInstruction, BookmarkStart, FieldResult, Field,
    Par, Pard, Line, Tab, Cell, Row, InTable, RowDefaults, CellRight, Plain,
    Bold, Italic, Underline, UnderlineNone, Strike, FontSize, Super, Sub, NoSuperSub,
    AlignLeft, AlignCenter, AlignRight, AlignJustify, LeftIndent, RightIndent, FirstIndent, SpaceBefore,
    SpaceAfter, TabStop,
    Ansi, Mac, Pc, Pca, AnsiCodePage, Uc, U, Bin,
    FontTable, Font, DefaultFont, FontFamily, FontCharset,
    Picture, ShapePicture, NonShapePicture, PictureKind, PictureWidth, PictureHeight, PictureGoalWidth,
    PictureGoalHeight, PictureScaleX, PictureScaleY,
    CellBorder, OtherBorder, BorderStyle, BorderWidth,
    Char,  // a named special character
};

struct WordInfo {
    Word word;
    int value = 0;  // the character of Char; the kind, family, side or style of the others that have one
};

// The word named `name`, or nullptr for a word the reader passes over.
const WordInfo* findWord(std::string_view name);

}  // namespace documents::rtf
