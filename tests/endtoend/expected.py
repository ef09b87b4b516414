"""Reports as they should come out, with every member."""


def collector(operation):
    return {"action": "Collector", "operation": operation}


def change_application(process, name, description, title):
    return {"action": "ChangeApplication", "processID": process, "applicationName": name,
            "fileDescription": description, "windowTitle": title}


def click(name, control, button="left", state=2, identifier=""):
    return {"action": "Click", "elementName": name, "controlType": control, "automationID": identifier,
            "button": button, "toggleState": state}


def click_link(name, url=None):
    report = {"action": "ClickHyperLink", "elementName": name, "automationID": ""}
    return report if url is None else {**report, "url": url}


def click_list_item(row, control, column="", cell="", button="left"):
    return {"action": "ClickListItem", "elementName": row, "controlType": control, "automationID": "",
            "button": button, "columnName": column, "columnValue": cell}


def click_radio_button(name, control, group):
    return {"action": "ClickRadioButton", "elementName": name, "controlType": control, "automationID": "",
            "groupName": group}


def click_combo_box(name, control, value, button="left"):
    return {"action": "ClickComboBox", "elementName": name, "controlType": control, "automationID": "",
            "comboBoxValue": value, "button": button}


def change(kind, name, control, value):
    """`kind` is what follows "Change", as "Text" or "SelectedRows"; or "Toggle"."""
    action = kind if kind == "Toggle" else "Change" + kind
    return {"action": action, "elementName": name, "controlType": control, "automationID": "", "newValue": value}


def key_combination(key, name, control):
    return {"action": "PressKeyCombination", "elementName": name, "controlType": control, "automationID": "", "key": key}


def special_key(key, name, control):
    return {"action": "PressSpecialKey", "elementName": name, "controlType": control, "automationID": "", "key": key}
