#include "library/file_dialect.h"

namespace zantor {

FileDialect DialectFor(int version, bool pcbFile) {
    FileDialect dialect;
    if (pcbFile) {
        // A board's decals carry no attributes; its label records are not read.
        dialect.countOrder = {CountField::Pieces, CountField::Terminals, CountField::Stacks,
                              CountField::Texts, CountField::Labels};
        dialect.countCount = 5;
        dialect.labelPlace = LabelPlace::Unread;
    } else {
        dialect.countOrder = {CountField::Attributes, CountField::Labels,    CountField::Pieces,
                              CountField::Texts,      CountField::Terminals, CountField::Stacks};
        dialect.countCount = 6;
        dialect.attributesBeforePieces = true;
        dialect.labelPlace = LabelPlace::BeforePieces;
    }
    // Version 4 writes the drill on the stack header, version 3 on each stack line; anything
    // newer is read without drills until its layout is taken in here.
    if (version == 4) {
        dialect.drillPlace = DrillPlace::StackHeader;
    } else if (version == 3) {
        dialect.drillPlace = DrillPlace::EveryStackLine;
    } else {
        dialect.drillPlace = DrillPlace::Nowhere;
    }
    return dialect;
}

}  // namespace zantor
