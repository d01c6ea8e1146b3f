#pragma once

class CListingNames;
class QString;
struct SRecordedLine;

/// What a user did, for a reader.
namespace GestureText {

/// "press of the left button on alpha (1c0ffee0-…)"; empty for what says nothing by itself: a button that goes up, a move.
QString Get(const SRecordedLine& line, const CListingNames& names);

} // namespace GestureText
