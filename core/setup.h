#pragma once

// The start of a session and its end.

namespace hb {

void Setup();
void CompactAddressDatabase();
void ClearReportTables();
void ClearRptBirthday();
void ClearRptLabels();
void LoadRoofTypes();
// Writes the cached settings back, closes the database and ends the process. Does not return.
[[noreturn]] void SaveStateAndEnd();
// What unloading the frame does: the settings are stored and the program ends.
[[noreturn]] void unloadFrame();

} // namespace hb
