#pragma once
// The images a tree or toolbar draws from, numbered from 1; image 0 is no image.
#include <QIcon>
#include <QList>

namespace forms {

class ImageList {
public:
    void Add(const QIcon& image) { images_.append(image); }
    int Count() const { return static_cast<int>(images_.size()); }
    // Image 0 is the null icon; a number beyond the list raises 35600 "Index out of bounds".
    QIcon image(int index) const;

private:
    QList<QIcon> images_;
};

}  // namespace forms
