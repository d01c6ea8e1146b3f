#pragma once

class QString;
struct SPanelCounts;

/// What the status bar says about the panel's rows, in the present language.
namespace CountText {

/// "3 processors selected, 1 of them hidden by the search"; empty when nothing is selected.
QString GetSelected(const SPanelCounts& counts);

/// "12 of 256 processors found", with the groups that were found for themselves; empty without a search.
QString GetFound(const SPanelCounts& counts);

} // namespace CountText
