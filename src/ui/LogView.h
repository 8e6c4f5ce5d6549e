#pragma once

#include <QString>
#include <QTimer>
#include <QWidget>

class QCheckBox;
class QPlainTextEdit;

// The log window: the end of the box log, optionally only its errors, refreshed whenever the log
// changes; the text can be copied, the file revealed in the file manager, the log emptied.
class LogView : public QWidget
{
    Q_OBJECT

public:
    // How much of the log's end is read: the window stays quick with a log near its rotation size.
    static constexpr qint64 tailBytes = 400'000;

    explicit LogView(QWidget *parent = nullptr);

    // The text as the window shows it.
    QString shown() const;
    // The error entries of a log text, one per line.
    static QString errorLines(const QString &text);
    // Shows the file selected in the desktop's file manager, or at least its folder.
    static void reveal(const QString &path);

protected:
    void showEvent(QShowEvent *event) override;

private:
    void reload();
    void showText();

    QString m_text;
    QPlainTextEdit *m_view = nullptr;
    QCheckBox *m_onlyErrors = nullptr;
    // Gathers the changes of a busy transfer into one reload.
    QTimer m_reloadTimer;
};
