#pragma once

#include <QString>

#include <utility>
#include <variant>

namespace files {

/** What a caller can decide by. The error's text tells the rest. */
enum class Reason {
    NotFound,
    NoPermission,
    /** The disk or the user's share of it is full. */
    NoSpace,
    /** A folder, a pipe or a device stands where a file is expected. */
    NotRegular,
    /** A link whose other end doesn't exist. */
    LinkToNothing,
    /** The file is larger than the caller is ready to read. */
    TooLarge,
    /** A file of that name exists and must not be replaced. */
    Exists,
    /** Anything else, above all a failing disk or network. */
    Io
};

struct Error
{
    Reason reason = Reason::Io;
    /** The operating system's error number; 0 when it wasn't the system that refused. */
    int number = 0;

    static Error fromSystem(int number);
    /** One line in the system's language, for a log or below an alert. */
    QString text() const;
};

/** A value, or the error that took its place. */
template <typename T = std::monostate> class [[nodiscard]] Result
{
public:
    Result(T value)
        : m_content(std::move(value))
    {
    }
    Result(Error error)
        : m_content(error)
    {
    }

    explicit operator bool() const { return std::holds_alternative<T>(m_content); }
    /** Only where there is a value. */
    const T &operator*() const
    {
        Q_ASSERT(*this);
        return *std::get_if<T>(&m_content);
    }
    /** Only where there is none. */
    const Error &error() const
    {
        Q_ASSERT(!*this);
        return *std::get_if<Error>(&m_content);
    }
    bool failedBy(Reason reason) const { return !*this && error().reason == reason; }

private:
    std::variant<T, Error> m_content;
};

/** The success of what has no value to return. */
inline Result<> done()
{
    return std::monostate();
}

} // namespace files
