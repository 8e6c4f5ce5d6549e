#pragma once

#include "BoxSettings.h"

#include <QCoroTask>
#include <QWidget>

class BoxSync;
class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QSpinBox;
class Store;

// The settings window: the connection to the box with its test, and the program's own choices
// (the list at start, the side of the bouquet sidebar, appearance, language). The connection
// fields are a draft taken from the store when the window opens and applied when it closes and
// before each test; the other choices take effect the moment they change.
class SettingsView : public QWidget
{
    Q_OBJECT

public:
    SettingsView(Store &store, BoxSync &sync, QWidget *parent = nullptr);

    // The connection settings as the fields hold them.
    BoxSettings draft() const;
    // Saves the draft and hands it to the store, so that later box operations use it.
    void apply();
    // Applies the draft, then runs the store's connection test; the outcome shows in the window.
    QCoro::Task<> testConnection();

signals:
    // A choice that the main window shows (the side of the bouquet sidebar) has changed.
    void preferencesChanged();

protected:
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    QWidget *boxSection();
    QWidget *startSection();
    QWidget *advancedSection();
    QWidget *appearanceSection();
    QWidget *languageSection();
    void takeDraft();
    void showBusy();
    void showOutcome(const QString &text, bool failed);
    void chooseLanguage();

    Store &m_store;
    BoxSync &m_sync;
    // The store's settings when the window opened; the fields replace what they show.
    BoxSettings m_base;

    QLineEdit *m_host = nullptr;
    QLineEdit *m_user = nullptr;
    QLineEdit *m_password = nullptr;
    QLabel *m_fallbackNote = nullptr;
    QPushButton *m_testButton = nullptr;
    QLabel *m_outcomeIcon = nullptr;
    QLabel *m_outcome = nullptr;
    QString m_lastOutcome;
    bool m_lastFailed = false;

    QSpinBox *m_ftpPort = nullptr;
    QSpinBox *m_httpPort = nullptr;
    QSpinBox *m_telnetPort = nullptr;
    QLineEdit *m_directory = nullptr;
    QLineEdit *m_piconDirectory = nullptr;

    QCheckBox *m_autoLoadLast = nullptr;
    QComboBox *m_sidebarSide = nullptr;
    QComboBox *m_appearance = nullptr;
    QComboBox *m_language = nullptr;
    QLabel *m_restartHint = nullptr;
    QPushButton *m_restartButton = nullptr;
};
