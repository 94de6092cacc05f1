#pragma once

#include "ControlChecks.h"

namespace hearthbook::test {

/// Every control of DBeditor.
inline constexpr Control editorControls[] = {
    {"Year", "QLineEdit", "", "Year"},
    {"Description", "QPlainTextEdit", "", "Description"},
    {"PlacesDrp", "hearthbook::DataCombo", "", "Place"},
    {"EventsDrp", "hearthbook::DataCombo", "", "Event"},
    {"DataList1", "hearthbook::DataList", "", "Names"},
    {"List2", "QListWidget", "", "Names In Photo"},
    {"Combo1", "QComboBox", "", "Family Members"},
    {"Image1", "hearthbook::PictureBox"},
    {"Shape1", "QLabel"},
    {"NumRec", "QLabel", "1 of 1", "Navigation Buttons"},
    {"Label5", "QLabel", "Add Audio"},
    {"Image2", "QToolButton"},
    {"Command6", "QPushButton", "|<<", "Navigation Buttons"},
    {"PrevPhoto", "QPushButton", "<<", "Navigation Buttons"},
    {"NextPhoto", "QPushButton", ">>", "Navigation Buttons"},
    {"Command8", "QPushButton", ">>|", "Navigation Buttons"},
    {"Command7", "QPushButton", "Go To", "Go To"},
    {"FindPhoto", "QPushButton", "Find Photo", "Find Photo"},
    {"Command18", "QPushButton", "Find Next Empty", "Find Next Empty"},
    {"Command1", "QPushButton", "Add From File", "Add From File"},
    {"Command13", "QPushButton", "Add From Scanner", "Add From Scanner"},
    {"Command14", "QPushButton", "Edit Image", "Edit Image"},
    {"Command15", "QPushButton", "Add To Sub-Album", "Add To Sub-Album"},
    {"Command5", "QPushButton", "Delete", "Delete"},
    {"Command4", "QPushButton", "Done", "Done"},
    {"Command9", "QPushButton", "Add", "Add Place"},
    {"Command17", "QPushButton", "Delete", "Delete Place"},
    {"Command10", "QPushButton", "Add", "Add Event"},
    {"Command16", "QPushButton", "Delete", "Delete Event"},
    {"Command19", "QPushButton", "Add", "Add/Update Names"},
    {"Command11", "QPushButton", "Update", "Add/Update Names"},
    {"Command2", "QPushButton", ">>"},
    {"Command3", "QPushButton", "<<"},
    {"Command12", "QPushButton", "Find Year", "Find Year"},
    {"markName", "QCheckBox", "Mark Names", "Mark Names"},
    {"placeLabel", "QLabel", " Place:"},
    {"eventLabel", "QLabel", " Event:"},
    {"namesLabel", "QLabel", "Names In Photo:"},
    {"yearLabel", "QLabel", " Year:"},
    {"descriptionLabel", "QLabel", " Description:"},
};

} // namespace hearthbook::test
