"""qBittorrent: Qt 5 with a notice at its start, filters, tables and an options dialog."""
from cases import *

PROGRAM = Program(
    "qBittorrent", "qbittorrent", ["qbittorrent"],
    opens=Application("qBittorrent", "Legal notice"),
    cases=[
        case(click("I Agree", "button"), Click("I Agree"), effect=titled("qBittorrent")),
        case(choose("Tools", "Preferences"), Click("Tools -> Preferences"), effect=titled("Options")),
        case(click("Behavior", "item"), Item("Behavior")),
        case(click("Downloads", "item"), Item("Downloads")),
        case(click("Connection", "item"), Item("Connection")),
        case(click("Speed", "item"), Item("Speed")),
        case(click("BitTorrent", "item"), Item("BitTorrent")),
        case(click("Cancel", "button"), Click("Cancel"), effect=titled("qBittorrent")),
        case(click("Trackers", "button"), Click("Trackers")),
        case(click("Filter torrent names...", "text"), Click(("Filter torrent names...", "Filter torrent names…"))),
        case(typing("buoy"), Text(("Filter torrent names...", "Filter torrent names…"), "buoy")),
        case(choose("File", "Add Torrent Link..."), Click("File -> Add Torrent Link…"), effect=titled("Download from URLs")),
        case(click("Cancel", "button"), Click("Cancel"), effect=titled("qBittorrent")),
        case(choose("Help", "About"), Click("Help -> About"), effect=titled("About")),
        case(click("Authors", "page tab"), Radio("Authors")),
        case(keys("Escape"), effect=titled("qBittorrent")),
    ])
