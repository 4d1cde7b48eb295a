#pragma once

#include <QWidget>

#include <memory>

class Notices;

namespace Ui {
class FirstStart;
}

/**
 * What a person sees who has no language yet. It offers two roads: a new language, or the languages of an
 * existing shared folder.
 */
class FirstStartPage : public QWidget
{
    Q_OBJECT

public:
    explicit FirstStartPage(QWidget *parent = nullptr);
    ~FirstStartPage() override;

    QString languageName() const;
    Notices &notices();
    /** The road of the shared folder at its beginning. */
    void prepare(bool isLinked);
    /** Back to its beginning, after nothing was found in the folder. */
    void reset();
    void showLinked();
    void showSynced();
    /** Column 0 chooses the first service's page, any other the last. */
    void selectSyncService(int column);

signals:
    void getStartedRequested();
    void linkRequested();
    void getStartedAfterSyncRequested();

private:
    void localize();
    void controlTextDidChange();
    void setStep3Active(bool isActive);

    std::unique_ptr<Ui::FirstStart> m_ui;
};
