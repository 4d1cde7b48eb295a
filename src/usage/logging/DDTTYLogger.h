#pragma once

#include "usage/logging/DDAbstractLogger.h"

#include <QList>

#include <optional>

/** Writes to the terminal from which the program was started. */
class DDTTYLogger : public DDAbstractLogger
{
public:
    /** Each part is 0 to 255. */
    struct Color
    {
        int red = 0;
        int green = 0;
        int blue = 0;
    };
    /** How the terminal wants its colour codes. */
    enum class ColorMode { none, sixteenColors, manyColors, xcodeColors };

    /** The descriptor is not closed. */
    explicit DDTTYLogger(int fileDescriptor, ColorMode colorMode = colorModeOfEnvironment());
    /** On standard error. */
    static std::shared_ptr<DDTTYLogger> sharedInstance();
    /** What the variables XcodeColors and TERM tell. */
    static ColorMode colorModeOfEnvironment();

    bool colorsEnabled() const;
    /** Off at first. */
    void setColorsEnabled(bool enabled);
    /** The colours of messages with that flag and context; an absent colour leaves the terminal's own. */
    void setForegroundColor(std::optional<Color> foreground, std::optional<Color> background, int flag,
                            int context = 0);
    /** The colours of messages with that tag; they go before those of flag and context. */
    void setForegroundColor(std::optional<Color> foreground, std::optional<Color> background,
                            const QVariant &tag);
    /** Forgets all colours, the first ones too: red for errors, orange for warnings. */
    void clearAllColors();

    void logMessage(const DDLogMessage &message) override;

private:
    struct ColorProfile
    {
        /** Valid for a profile by tag, which then has no flag. */
        QVariant tag;
        int flag = 0;
        int context = 0;
        QByteArray start;
        QByteArray end;
    };

    ColorProfile makeProfile(std::optional<Color> foreground, std::optional<Color> background) const;
    void setProfile(const ColorProfile &profile);
    const ColorProfile *profileFor(const DDLogMessage &message) const;

    const int m_fileDescriptor;
    const ColorMode m_colorMode;
    const QByteArray m_processName;
    bool m_colorsEnabled = false;
    QList<ColorProfile> m_profiles;
};
