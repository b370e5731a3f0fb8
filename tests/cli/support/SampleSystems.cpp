#include "cli/support/SampleSystems.h"

#include "cli/support/CliFixture.h"

namespace orr::clitest {

QByteArray vegaDescriptor() {
    return crlf({"[General]", "PlanetPics=YNN", "Messages=NYN", "", ";SolarSystem",
                 ";\"Vega                \",0,3", ";400,2,0,0,1,0", ";430,3,1,5,13,7",
                 ";460,4,2,9,14,0", "[Names]", "S=Bright star", "1=First", "3=Third", "[1]",
                 "Info=one", "[3]", "Info=three"});
}

QByteArray plainDescriptor(const char* displayName, int count) {
    const QByteArray flags(count, 'N');
    QByteArray text = "[General]\r\nPlanetPics=" + flags + "\r\nMessages=" + flags +
                      "\r\n\r\n;SolarSystem\r\n;\"" + QByteArray(displayName).leftJustified(20) +
                      "\"," + "0," + QByteArray::number(count) + "\r\n";
    for (int n = 0; n < count; ++n)
        text += ";" + QByteArray::number(400 + 30 * n) + ",2,0,0,1,0\r\n";
    return text;
}

}  // namespace orr::clitest
