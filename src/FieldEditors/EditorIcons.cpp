#include "EditorIcons.h"

// 16 by 16 pixel art for the editors' small buttons, kept as XPM text in the
// program so that no resource file has to be found at run time.
namespace {

const char* const defaultIconXpm[] = {
    "16 16 64 1",       "# c #282828",      "$ c #2a2a2a",      "% c #2d2d2d",      "& c #303030",
    "' c #333333",      "( c #353535",      ") c #383838",      "* c #3b3b3b",      "+ c #3e3e3e",
    ", c #414141",      "- c #434343",      ". c #464646",      "/ c #494949",      "0 c #4c4c4c",
    "1 c #4e4e4e",      "2 c #515151",      "3 c #545454",      "4 c #575757",      "5 c #5a5a5a",
    "6 c #5c5c5c",      "7 c #5f5f5f",      "8 c #626262",      "9 c #656565",      ": c #676767",
    "; c #6a6a6a",      "< c #6d6d6d",      "= c #707070",      "> c #737373",      "? c #757575",
    "@ c #787878",      "A c #7b7b7b",      "B c #7e7e7e",      "C c #808080",      "D c #838383",
    "E c #868686",      "F c #898989",      "G c #8c8c8c",      "H c #8e8e8e",      "I c #919191",
    "J c #949494",      "K c #979797",      "L c #999999",      "M c #9c9c9c",      "N c #9f9f9f",
    "O c #a2a2a2",      "P c #a5a5a5",      "Q c #a7a7a7",      "R c #aaaaaa",      "S c #adadad",
    "T c #b0b0b0",      "U c #b2b2b2",      "V c #b5b5b5",      "W c #b8b8b8",      "X c #bbbbbb",
    "Y c #bebebe",      "Z c #c0c0c0",      "[ c #c3c3c3",      "] c #c6c6c6",      "^ c #c9c9c9",
    "_ c #cbcbcb",      "` c #cecece",      "a c #d1d1d1",      "b c #d4d4d4",      "c c #d7d7d7",
    "ccccccc((ccccccc", "cccc'%$##$%'cccc", "ccc&#SSRPMI#&ccc", "cc&TUVVUSOKGA&cc", "c'#UWXXWURNHC#'c",
    "c%SVXZZZXTOIC=%c", "c$SVXZ]^[VPJC<$c", "(#RUWZ^`^WPIB;#(", "(#PSUX[^[UNG@9#(", "c$MORTVWUPJD=6$c",
    "c%IKNOPPNJE?92%c", "c'#GHIJIGD?:4#'c", "cc&ACCCB@=94/&cc", "ccc&#=<;962#&ccc", "cccc'%$##$%'cccc",
    "ccccccc((ccccccc"};

const char* const ignoreIconXpm[] = {
    "16 16 63 1",       "# c #000000",      "$ c #030303",      "% c #060606",      "& c #090909",
    "' c #0c0c0c",      "( c #0f0f0f",      ") c #121212",      "* c #151515",      "+ c #181818",
    ", c #1b1b1b",      "- c #1e1e1e",      ". c #222222",      "/ c #252525",      "0 c #282828",
    "1 c #2b2b2b",      "2 c #2e2e2e",      "3 c #313131",      "4 c #343434",      "5 c #373737",
    "6 c #3a3a3a",      "7 c #3d3d3d",      "8 c #414141",      "9 c #444444",      ": c #474747",
    "; c #4a4a4a",      "< c #4d4d4d",      "= c #505050",      "> c #535353",      "? c #565656",
    "@ c #595959",      "A c #5c5c5c",      "B c #606060",      "C c #636363",      "D c #666666",
    "E c #696969",      "F c #6c6c6c",      "G c #6f6f6f",      "H c #727272",      "I c #757575",
    "J c #787878",      "K c #7b7b7b",      "L c #7e7e7e",      "M c #828282",      "N c #858585",
    "O c #888888",      "P c #8b8b8b",      "Q c #8e8e8e",      "R c #919191",      "S c #949494",
    "T c #979797",      "U c #9a9a9a",      "V c #9d9d9d",      "W c #a1a1a1",      "X c #a4a4a4",
    "Y c #a7a7a7",      "Z c #aaaaaa",      "[ c #adadad",      "] c #b0b0b0",      "^ c #b3b3b3",
    "_ c #b6b6b6",      "` c #b9b9b9",      "a c #bcbcbc",      "b c #c0c0c0",      "bbbbbbbbbbbbbbbb",
    "bbbb97766779bbbb", "bbb8654334568bbb", "bb864bbbbbb468bb", "b9641/bbbbbb469b", "b75b/-+bbbbbb57b",
    "b74bb+)'bbbbb47b", "b63bbb'%%bbbb36b", "b63bbbb%%'bbb36b", "b74bbbbb')+bb47b", "b75bbbbbb+-/b57b",
    "b964bbbbbb/1469b", "bb864bbbbbb468bb", "bbb8654334568bbb", "bbbb97766779bbbb", "bbbbbbbbbbbbbbbb"};

const char* const editIconXpm[] = {
    "16 16 63 1",       "# c #283c5a",      "$ c #2a3e5c",      "% c #2d405e",      "& c #2f4261",
    "' c #324463",      "( c #344766",      ") c #374968",      "* c #394b6a",      "+ c #3c4d6d",
    ", c #3e4f6f",      "- c #415272",      ". c #435474",      "/ c #465676",      "0 c #485879",
    "1 c #4b5a7b",      "2 c #4d5d7e",      "3 c #505f80",      "4 c #526182",      "5 c #556385",
    "6 c #576587",      "7 c #5a688a",      "8 c #5c6a8c",      "9 c #5f6c8e",      ": c #616e91",
    "; c #647093",      "< c #667396",      "= c #697598",      "> c #6b779a",      "? c #6e799d",
    "@ c #707b9f",      "A c #737ea2",      "B c #7580a4",      "C c #7882a6",      "D c #7a84a9",
    "E c #7d86ab",      "F c #7f89ae",      "G c #828bb0",      "H c #848db2",      "I c #878fb5",
    "J c #8991b7",      "K c #8c94ba",      "L c #8e96bc",      "M c #9198be",      "N c #939ac1",
    "O c #969cc3",      "P c #989fc6",      "Q c #9ba1c8",      "R c #9da3ca",      "S c #a0a5cd",
    "T c #a2a7cf",      "U c #a5aad2",      "V c #a7acd4",      "W c #aaaed6",      "X c #acb0d9",
    "Y c #afb2db",      "Z c #b1b5de",      "[ c #b4b7e0",      "] c #b6b9e2",      "^ c #b9bbe5",
    "_ c #bbbde7",      "` c #bec0ea",      "a c #c0c2ec",      "b c #c3c4ee",      "bbbbbbbbbbbbbbbb",
    "b()))***+++,,,-b", "b)OQS*WY[^,KMO-b", "b)QTW*^aMP,VY]-b", "b)SW[+MQUY,KOS.b", "b***+++,,,---..b",
    "b*W^M+Y`OU-KQW.b", "b*YaQ,`PW_-V^N/b", "b+[MU,OW`Q.KS[/b", "b+^PY,U_QZ.V`R/b", "b+,,,---...///0b",
    "b,KVK-KVKV/VKV0b", "b,MYO-Q^S`/KWM0b", "b,O]S.WN[R/VMZ1b", "b---...///00011b", "bbbbbbbbbbbbbbbb"};

// The list editors' row buttons: flat shapes, readable at 16 pixels.
const char* const addIconXpm[] = {
    "16 16 2 1",        "  c None",         "# c #2f7d32",      "                ", "                ",
    "                ", "       ##       ", "       ##       ", "       ##       ", "       ##       ",
    "   ##########   ", "   ##########   ", "       ##       ", "       ##       ", "       ##       ",
    "       ##       ", "                ", "                ", "                ",
};

const char* const deleteIconXpm[] = {
    "16 16 2 1",        "  c None",         "# c #b71c1c",      "                ", "                ",
    "                ", "   ##      ##   ", "   ###    ###   ", "    ###  ###    ", "     ######     ",
    "      ####      ", "      ####      ", "     ######     ", "    ###  ###    ", "   ###    ###   ",
    "   ##      ##   ", "                ", "                ", "                ",
};

const char* const upIconXpm[] = {
    "16 16 2 1",        "  c None",         "# c #33507a",      "                ", "                ",
    "                ", "       ##       ", "       ##       ", "      ####      ", "      ####      ",
    "     ######     ", "     ######     ", "    ########    ", "    ########    ", "   ##########   ",
    "   ##########   ", "                ", "                ", "                ",
};

const char* const downIconXpm[] = {
    "16 16 2 1",        "  c None",         "# c #33507a",      "                ", "                ",
    "                ", "   ##########   ", "   ##########   ", "    ########    ", "    ########    ",
    "     ######     ", "     ######     ", "      ####      ", "      ####      ", "       ##       ",
    "       ##       ", "                ", "                ", "                ",
};

} // namespace

QPixmap EditorIcons::defaultIcon()
{
    return QPixmap(defaultIconXpm);
}

QPixmap EditorIcons::ignoreIcon()
{
    return QPixmap(ignoreIconXpm);
}

QPixmap EditorIcons::editIcon()
{
    return QPixmap(editIconXpm);
}

QPixmap EditorIcons::addIcon()
{
    return QPixmap(addIconXpm);
}

QPixmap EditorIcons::deleteIcon()
{
    return QPixmap(deleteIconXpm);
}

QPixmap EditorIcons::upIcon()
{
    return QPixmap(upIconXpm);
}

QPixmap EditorIcons::downIcon()
{
    return QPixmap(downIconXpm);
}
