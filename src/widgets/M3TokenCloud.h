#pragma once

#include "platform/OrderedSet.h"

#include <QHash>
#include <QWidget>

class M3TokenButton;
class M3TokenCloud;

class M3TokenCloudDelegate
{
public:
    virtual ~M3TokenCloudDelegate() = default;
    virtual void tokenCloudDidClickToken(M3TokenCloud *cloud, const QString &token, bool enabled)
    {
        Q_UNUSED(cloud)
        Q_UNUSED(token)
        Q_UNUSED(enabled)
    }
    virtual void tokenCloudDidChangePreferredHeight(M3TokenCloud *cloud, double height)
    {
        Q_UNUSED(cloud)
        Q_UNUSED(height)
    }
};

/** Texts as small toggle buttons in rows. The buttons can be dragged as text. */
class M3TokenCloud : public QWidget
{
    Q_OBJECT

public:
    explicit M3TokenCloud(QWidget *parent = nullptr);

    const platform::TextSet &tokens() const { return m_tokens; }
    /** Replaces the texts; the selection stays as it is, also for texts that went. */
    void setTokens(const platform::TextSet &tokens);
    /** False for an empty or known text. */
    bool addTokenWithString(const QString &token);
    void removeTokenWithString(const QString &token);
    const platform::TextSet &selectedTokenNames() const { return m_selectedTokenNames; }
    void setSelectedTokenNames(const platform::TextSet &names);
    /** Height that all rows need; -1 before the second layout. */
    double preferredHeight() const { return m_preferredHeight; }
    M3TokenButton *buttonForToken(const QString &token) const { return m_tokenButtons.value(token); }
    /** Not owned; may be null. */
    void setDelegate(M3TokenCloudDelegate *delegate) { m_delegate = delegate; }
    /** The layout; drawing runs it too. */
    void recalculateButtonLocations();

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    M3TokenButton *createButton(const QString &token);
    void removeButton(const QString &token);
    /** Leaves alone what stands in its place, so that drawing doesn't cause another drawing. */
    void placeButtons(const QList<QList<M3TokenButton *>> &rows);
    void buttonClicked(M3TokenButton *button);

    platform::TextSet m_tokens;
    platform::TextSet m_selectedTokenNames;
    QHash<QString, M3TokenButton *> m_tokenButtons;
    /** In the order of their titles; empty while that is to be worked out anew. */
    QList<M3TokenButton *> m_sortedButtons;
    M3TokenCloudDelegate *m_delegate = nullptr;
    double m_preferredHeight = -1.0;
    bool m_setup = false;
};
