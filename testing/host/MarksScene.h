#pragma once
// A scene for the tests of how kalhost shows a field's state and a selected
// node: fields set in the file and left at their defaults, one driven by a
// named engine, one by an unnamed engine, one by another node's field, an
// ignored one, and nodes of a type Coin does not know.
#include <QByteArray>

namespace MarksScene {

inline const QByteArray kText = "#Inventor V2.1 ascii\n"
                                "Separator {\n"
                                "  DEF Moved Transform {\n"
                                "    translation 1 2 3 = DEF Mover ComposeVec3f { x 1 y 2 z 3 } . vector\n"
                                "    scaleFactor 2 2 2\n"
                                "  }\n"
                                "  DEF Follower Transform { rotation 0 0 1 0 = USE Moved . rotation }\n"
                                "  DEF Drifter Transform { center 0 0 0 = ComposeVec3f { } . vector }\n"
                                "  DEF Skipped Material { diffuseColor 1 0 0 ~ }\n"
                                "  DEF Detail Complexity { }\n"
                                "  MyNode { fields [ SFFloat size ] size 2 }\n"
                                "  DEF Named MyNode { fields [ SFFloat size ] }\n"
                                "}\n";

} // namespace MarksScene
