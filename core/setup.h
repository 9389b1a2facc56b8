#pragma once

// The start of a session and its end.

namespace hb {

void Setup();
void CompactAddressDatabase();
void ClearReportTables();
void ClearRptBirthday();
void ClearRptLabels();
void LoadRoofTypes();
// Lets another copy of the program use the data folder (the end of a session in the tests).
void releaseDataFolder();
// Writes the cached settings back into the open book (and makes the backup of a changed session when the
// user asked for one); throws when the book does not take them.
void saveSessionState();
// Writes the cached settings back, closes the database and ends the process. Does not return.
[[noreturn]] void SaveStateAndEnd();
// What unloading the frame does: the settings are stored and the program ends.
[[noreturn]] void unloadFrame();

} // namespace hb
