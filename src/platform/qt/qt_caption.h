// Captions: short texts with an access key that controls paint themselves, on lines that are no higher
// than their font.
#pragma once

#include <QFont>
#include <QKeySequence>
#include <QRect>
#include <QString>

class QPainter;

namespace velm {

class Caption {
  public:
    // In a text with access key, "&" stands before its letter and "&&" for the sign.
    explicit Caption(const QString& text, bool hasMnemonic = true);

    // Without the signs of the access key.
    const QString& Text() const { return text_; }
    // Alt with the letter; empty for none.
    QKeySequence AccessKey() const;
    // What it needs; with a width above 0 its lines are broken there.
    QSize SizeOf(const QFont& font, int width = 0) const;
    // Within a box, where lines are broken if it `wraps` and there is room for two.
    void Paint(QPainter& painter, const QRect& box, const QFont& font, Qt::Alignment alignment,
               bool wraps) const;

  private:
    QString text_;
    int mnemonic_ = -1;
};

}  // namespace velm
