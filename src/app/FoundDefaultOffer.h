#pragma once

class Prompts;
struct AppState;

// At start-up, while none of Lumbra's own three emulators is set up and the default
// emulator is none that Lumbra found, Lumbra looks for the emulators on the system
// (storing what it finds) and offers the first found, in the catalogue's order, as the default
// emulator, in one yes/no question. The question is asked once: the answer is kept in the settings
// store ("Settings", "FoundEmulatorOffered"). True when the player said yes.
bool OfferFoundDefaultEmulator(AppState& state, Prompts& prompts);
