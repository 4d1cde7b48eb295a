#pragma once

#include <QStringList>
#include <QWidget>

#include <functional>

class QCompleter;
class QLineEdit;
class QScrollArea;
class QStringListModel;

/**
 * A field of texts, each shown as a chip. A comma or Return ends a text, Backspace takes the last one away,
 * and a list offers completions. The arrow keys walk over the chips, Delete removes one. Return in an empty
 * input is left to the window's default button.
 */
class TokenField : public QWidget
{
    Q_OBJECT

public:
    explicit TokenField(QWidget *parent = nullptr);

    /** The chips, and what is being typed as a last one; trimmed, none empty, none twice. */
    QStringList tokens() const;
    void setTokens(const QStringList &tokens);
    void clear() { setTokens({}); }
    /** Completions for what has been typed; called with each change. */
    void setCompletionProvider(std::function<QStringList(const QString &)> provider);
    void setPlaceholderText(const QString &text);
    /** The field in which the next text is typed; it has the focus when this widget has. */
    QLineEdit *input() const { return m_input; }

signals:
    /** By the user; also for each letter typed. */
    void tokensChanged();
    void editingFinished();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    bool handleKey(int key);
    /** Return while the completions show and none is chosen ends the text as it was typed. */
    bool commitsUnderCompletions(int key);
    void handleTyping();
    /** Makes chips of the texts, as far as they are new. */
    void add(const QStringList &texts);
    void commitInput();
    void remove(int index);
    /** Places chips and input in rows of that width; returns the height of all rows. */
    int placeChips(int width, int rowHeight);
    void arrange();
    void paintChips(const QRect &area);
    void clickChip(const QPoint &place);

    QScrollArea *m_scrollArea = nullptr;
    QWidget *m_content = nullptr;
    QLineEdit *m_input = nullptr;
    QCompleter *m_completer = nullptr;
    QStringListModel *m_completions = nullptr;
    std::function<QStringList(const QString &)> m_provider;
    QString m_placeholderText;
    QStringList m_tokens;
    QList<QRect> m_places;
    /** The chip that the keyboard has reached, or -1. */
    int m_current = -1;
};
