#pragma once

namespace OrrinQuiver {

// The sound that opening a header by a click plays.
enum class HeaderSound {
    None,
    BuiltIn, // the control's own folder sound
    Up, // the loaded header-up sound: a header below the open one opens
    Down, // the loaded header-down sound: a header above the open one opens
};

// What the choice depends on: the control's sound switches, which sounds are
// loaded, and where the clicked header lies.
struct HeaderSoundInput
{
    bool playSounds = true;
    bool useSystemSounds = true;
    bool builtInLoaded = false;
    bool upLoaded = false;
    bool downLoaded = false;
    int clickedPosition = 0;
    int openPosition = 0; // 0 when no header is open
};

// The sound for a click on the header at `clickedPosition`: none for the
// header that is already open, with sounds off, or when the chosen sound was
// never loaded.
HeaderSound chooseHeaderSound(const HeaderSoundInput &input);

} // namespace OrrinQuiver
