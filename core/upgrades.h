#pragma once

// The steps that bring an older database file to the current layout. Each runs once, in order, from
// Setup; none is written to run twice.

namespace hb {

void ConvertDatabase101();
void ConvertDatabase12();
void ConvertDatabase20();


} // namespace hb
