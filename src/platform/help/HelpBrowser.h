// Shows a topic in the colours of the window's palette, and finds and highlights words in it.
#pragma once

#include <QTextBrowser>

class HelpBrowser : public QTextBrowser {
    Q_OBJECT

public:
    explicit HelpBrowser(QWidget* parent = nullptr);

    // Marks every place where one of the words stands, also on the pages shown later; no words for none.
    void Highlight(const QStringList& words);
    // Selects the next place of text, or the one before, starting over at the end. False where it is nowhere.
    bool FindInPage(const QString& text, QTextDocument::FindFlags direction);

protected:
    QVariant loadResource(int type, const QUrl& name) override;
    void doSetSource(const QUrl& url, QTextDocument::ResourceType type) override;
    void changeEvent(QEvent* event) override;

private:
    void ApplyColours();
    void MarkWords();

    QStringList words_;
};
