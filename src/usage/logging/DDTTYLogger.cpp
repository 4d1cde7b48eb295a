#include "usage/logging/DDTTYLogger.h"

#include <array>
#include <cerrno>
#include <limits>
#include <new>

#include <sys/uio.h>
#include <unistd.h>

namespace {

using Color = DDTTYLogger::Color;

constexpr Color red{255, 0, 0};
constexpr Color orange{255, 128, 0};

QByteArray processName()
{
    const QByteArray name = program_invocation_short_name;
    return name.isEmpty() ? QByteArrayLiteral("<UnnamedApp>") : name;
}

/** The levels that the 6 x 6 x 6 colour cube of a terminal with 256 colours has. */
constexpr std::array<int, 6> cubeLevels{0, 95, 135, 175, 215, 255};

int nearestCubeLevel(int value)
{
    int nearest = 0;
    for (int i = 1; i < int(cubeLevels.size()); ++i) {
        if (qAbs(cubeLevels[size_t(i)] - value) < qAbs(cubeLevels[size_t(nearest)] - value))
            nearest = i;
    }
    return nearest;
}

int codeOf256(Color color)
{
    return 16 + 36 * nearestCubeLevel(color.red) + 6 * nearestCubeLevel(color.green) +
           nearestCubeLevel(color.blue);
}

/** 0 to 15; the upper eight are the bright ones. */
int codeOf16(Color color)
{
    static constexpr std::array<Color, 16> palette{{{0, 0, 0},
                                                    {205, 0, 0},
                                                    {0, 205, 0},
                                                    {205, 205, 0},
                                                    {0, 0, 238},
                                                    {205, 0, 205},
                                                    {0, 205, 205},
                                                    {229, 229, 229},
                                                    {127, 127, 127},
                                                    {255, 0, 0},
                                                    {0, 255, 0},
                                                    {255, 255, 0},
                                                    {92, 92, 255},
                                                    {255, 0, 255},
                                                    {0, 255, 255},
                                                    {255, 255, 255}}};
    int nearest = 0;
    int smallest = std::numeric_limits<int>::max();
    for (int i = 0; i < int(palette.size()); ++i) {
        const Color candidate = palette[size_t(i)];
        const int r = candidate.red - color.red;
        const int g = candidate.green - color.green;
        const int b = candidate.blue - color.blue;
        if (r * r + g * g + b * b < smallest) {
            smallest = r * r + g * g + b * b;
            nearest = i;
        }
    }
    return nearest;
}

QByteArray startCode(DDTTYLogger::ColorMode mode, Color color, bool isForeground)
{
    switch (mode) {
    case DDTTYLogger::ColorMode::none:
        break;
    case DDTTYLogger::ColorMode::sixteenColors: {
        const int code = codeOf16(color);
        const int base = (isForeground ? 30 : 40) + (code >= 8 ? 60 : 0);
        return "\033[" + QByteArray::number(base + code % 8) + 'm';
    }
    case DDTTYLogger::ColorMode::manyColors:
        return (isForeground ? "\033[38;5;" : "\033[48;5;") + QByteArray::number(codeOf256(color)) + 'm';
    case DDTTYLogger::ColorMode::xcodeColors:
        return (isForeground ? "\033[fg" : "\033[bg") + QByteArray::number(color.red) + ',' +
               QByteArray::number(color.green) + ',' + QByteArray::number(color.blue) + ';';
    }
    return {};
}

QByteArray endCode(DDTTYLogger::ColorMode mode)
{
    switch (mode) {
    case DDTTYLogger::ColorMode::none:
        break;
    case DDTTYLogger::ColorMode::sixteenColors:
    case DDTTYLogger::ColorMode::manyColors:
        return QByteArrayLiteral("\033[0m");
    case DDTTYLogger::ColorMode::xcodeColors:
        return QByteArrayLiteral("\033[;");
    }
    return {};
}

} // namespace

DDTTYLogger::DDTTYLogger(int fileDescriptor, ColorMode colorMode)
    : DDAbstractLogger(QStringLiteral("cocoa.temiopilvi.ttyLogger"))
    , m_fileDescriptor(fileDescriptor)
    , m_colorMode(colorMode)
    , m_processName(processName())
{
    ColorProfile error = makeProfile(red, std::nullopt);
    error.flag = ddlog::flagError;
    ColorProfile warning = makeProfile(orange, std::nullopt);
    warning.flag = ddlog::flagWarn;
    m_profiles = {error, warning};
}

std::shared_ptr<DDTTYLogger> DDTTYLogger::sharedInstance()
{
    static const auto instance = std::make_shared<DDTTYLogger>(STDERR_FILENO);
    return instance;
}

DDTTYLogger::ColorMode DDTTYLogger::colorModeOfEnvironment()
{
    if (qgetenv("XcodeColors") == "YES")
        return ColorMode::xcodeColors;
    const QByteArray terminal = qgetenv("TERM").toLower();
    if (terminal.contains("256color"))
        return ColorMode::manyColors;
    return terminal.contains("color") ? ColorMode::sixteenColors : ColorMode::none;
}

bool DDTTYLogger::colorsEnabled() const
{
    bool enabled = false;
    runInOrder([&] { enabled = m_colorsEnabled; });
    return enabled;
}

void DDTTYLogger::setColorsEnabled(bool enabled)
{
    runInOrder([&] { m_colorsEnabled = enabled; });
}

void DDTTYLogger::setForegroundColor(std::optional<Color> foreground, std::optional<Color> background,
                                     int flag, int context)
{
    ColorProfile profile = makeProfile(foreground, background);
    profile.flag = flag;
    profile.context = context;
    runInOrder([&] { setProfile(profile); });
}

void DDTTYLogger::setForegroundColor(std::optional<Color> foreground, std::optional<Color> background,
                                     const QVariant &tag)
{
    ColorProfile profile = makeProfile(foreground, background);
    profile.tag = tag;
    runInOrder([&] { setProfile(profile); });
}

void DDTTYLogger::clearAllColors()
{
    runInOrder([&] { m_profiles.clear(); });
}

DDTTYLogger::ColorProfile DDTTYLogger::makeProfile(std::optional<Color> foreground,
                                                   std::optional<Color> background) const
{
    ColorProfile profile;
    if (foreground)
        profile.start += startCode(m_colorMode, *foreground, true);
    if (background)
        profile.start += startCode(m_colorMode, *background, false);
    if (!profile.start.isEmpty())
        profile.end = endCode(m_colorMode);
    return profile;
}

void DDTTYLogger::setProfile(const ColorProfile &profile)
{
    m_profiles.removeIf([&](const ColorProfile &old) {
        return old.tag == profile.tag && old.flag == profile.flag && old.context == profile.context;
    });
    m_profiles.append(profile);
}

const DDTTYLogger::ColorProfile *DDTTYLogger::profileFor(const DDLogMessage &message) const
{
    const ColorProfile *byFlag = nullptr;
    for (const ColorProfile &profile : m_profiles) {
        if (profile.tag.isValid()) {
            if (profile.tag == message.tag)
                return &profile;
        } else if ((profile.flag & message.logFlag) && profile.context == message.logContext) {
            byFlag = &profile;
        }
    }
    return byFlag;
}

void DDTTYLogger::logMessage(const DDLogMessage &message)
try {
    const QString formattedText = formatted(message);
    QByteArray prefix;
    if (formattedText == message.logMsg) {
        prefix = message.timestamp.toLocalTime().toString(u"yyyy-MM-dd HH:mm:ss:zzz").toLatin1() + ' ' +
                 m_processName + '[' + QByteArray::number(getpid()) + ':' +
                 QByteArray::number(message.machThreadID, 16) + "] ";
    }
    const QByteArray text = formattedText.toUtf8();
    const QByteArray lineEnd = text.endsWith('\n') ? QByteArray() : QByteArrayLiteral("\n");
    const ColorProfile *profile = m_colorsEnabled ? profileFor(message) : nullptr;

    // One gather-write, so that the lines of several writers do not interleave.
    const auto piece = [](QByteArrayView bytes) {
        return iovec{const_cast<char *>(bytes.data()), size_t(bytes.size())};
    };
    const QByteArrayView start = profile ? QByteArrayView(profile->start) : QByteArrayView();
    const QByteArrayView end = profile ? QByteArrayView(profile->end) : QByteArrayView();
    const std::array<iovec, 5> pieces{piece(start), piece(prefix), piece(text), piece(lineEnd), piece(end)};
    ssize_t written = 0;
    do {
        written = writev(m_fileDescriptor, pieces.data(), int(pieces.size()));
    } while (written < 0 && errno == EINTR);
} catch (const std::bad_alloc &) {
    // Too long for the memory that is left; losing the line is better than losing the program.
}
