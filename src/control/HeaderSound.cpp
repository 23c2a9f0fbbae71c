#include "control/HeaderSound.h"

namespace OrrinQuiver {

HeaderSound chooseHeaderSound(const HeaderSoundInput &input)
{
    if (!input.playSounds || input.clickedPosition == input.openPosition)
        return HeaderSound::None;
    if (input.useSystemSounds)
        return input.builtInLoaded ? HeaderSound::BuiltIn : HeaderSound::None;
    if (input.clickedPosition > input.openPosition)
        return input.upLoaded ? HeaderSound::Up : HeaderSound::None;
    return input.downLoaded ? HeaderSound::Down : HeaderSound::None;
}

} // namespace OrrinQuiver
