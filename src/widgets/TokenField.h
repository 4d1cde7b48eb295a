#pragma once

#include <QAbstractScrollArea>
#include <QStringList>

#include <functional>

class QLineEdit;

/**
 * A field of texts, each shown as a chip. A comma or Return ends a text, Backspace takes the last one back,
 * and a list offers completions. Return in an empty input is left to the window's default button.
 */
class TokenField : public QWidget
{
    Q_OBJECT

public:
    explicit TokenField(QWidget *parent = nullptr);

    /** The chips, and what is being typed as a last one. */
    QStringList tokens() const;
    void setTokens(const QStringList &tokens);
    void clear() { setTokens({}); }
    /** Completions for what has been typed; called with each change. */
    void setCompletionProvider(std::function<QStringList(const QString &)> provider);
    void setPlaceholderText(const QString &text);
    /** The field in which the next text is typed; it has the focus when this widget has. */
    QLineEdit *input() const { return m_input; }

signals:
    void tokensChanged();
    void editingFinished();

private:
    QLineEdit *m_input = nullptr;
};
