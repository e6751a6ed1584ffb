#pragma once

#include <Wt/WFlags.h>

namespace Wt {

/// How a widget appears and disappears. Users who ask their system for reduced motion see none.
class WAnimation {
public:
    enum AnimationEffect {
        SlideInFromLeft = 0x1,
        SlideInFromRight = 0x2,
        SlideInFromBottom = 0x3,
        SlideInFromTop = 0x4,
        Pop = 0x5,
        Fade = 0x100
    };
    enum TimingFunction { Ease, Linear, EaseIn, EaseOut, EaseInOut, CubicBezier };

    /// No effect.
    WAnimation() = default;
    /// `duration` in milliseconds.
    WAnimation(WFlags<AnimationEffect> effects, TimingFunction timing = Linear, int duration = 250)
        : mEffects(effects), mTiming(timing), mDuration(duration) {}

    void setEffects(WFlags<AnimationEffect> effects) { mEffects = effects; }
    void setTimingFunction(TimingFunction timing) { mTiming = timing; }
    void setDuration(int msecs) { mDuration = msecs; }

    WFlags<AnimationEffect> effects() const { return mEffects; }
    TimingFunction timingFunction() const { return mTiming; }
    int duration() const { return mDuration; }
    bool empty() const { return mEffects == 0 || mDuration == 0; }

    bool operator==(const WAnimation& o) const {
        return mEffects == o.mEffects && mTiming == o.mTiming && mDuration == o.mDuration;
    }
    bool operator!=(const WAnimation& o) const { return !(*this == o); }

private:
    WFlags<AnimationEffect> mEffects;
    TimingFunction mTiming = Linear;
    int mDuration = 250;
};
W_DECLARE_OPERATORS_FOR_FLAGS(WAnimation::AnimationEffect)

} // namespace Wt
