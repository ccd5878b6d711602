#pragma once
// Qt ends a program that it cannot give a window system to with advice of its own ("Reinstalling the
// application may fix this problem"). Vorlan says instead that it needs a graphical session, and ends with 1.
namespace app {

// Made before the application object: Qt's messages are held while the application object is made; a
// fatal one ends the program with Vorlan's own words. Gone, it passes the held ones on as Qt would have.
class GraphicalSessionCheck {
public:
    GraphicalSessionCheck();
    ~GraphicalSessionCheck();
    GraphicalSessionCheck(const GraphicalSessionCheck&) = delete;
    GraphicalSessionCheck& operator=(const GraphicalSessionCheck&) = delete;
};

}  // namespace app
