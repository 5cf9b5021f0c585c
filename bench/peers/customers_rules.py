"""The rules of the customers' log, as both scripts for it read them."""

import re

CLIENT_NUMBER, LOWEST, HIGHEST = 123, 1, 999_999_999

NOT_FOUND = "nicht gefunden!"
UNDEFINED = "_UNDEFINIERT_"
NO_DATA = (
    "Keine Daten vorhanden!;;;\r\n;;;\r\n;mandant;vonkonto;biskonto\r\n"
    f";{CLIENT_NUMBER};{LOWEST};{HIGHEST}\r\n"
)

CLIENT = (
    "SELECT Person_v4.Ps_Id, Ps_KurzName FROM Person_v4 JOIN Personalie ON Person_v4.Ps_Id = Personalie.Ps_Id"
    " JOIN Mandant_Zeit ON Personalie.Pl_Id = Mandant_Zeit.Pl_Id WHERE MaZt_Kanzlei = 0 AND Ps_Nr = ?"
)

# The customers of the client: by the log their persons, by the live table their own keys and terms of payment.
SELECTED = """
CREATE TEMP TABLE persons AS SELECT DISTINCT dlSuchId1 FROM tProtokoll
    WHERE dcTable = 'KUNDEN_V4' AND dlSuchId4 BETWEEN {lowest} AND {highest} AND dlSuchId2 = {client};
CREATE TEMP TABLE customers AS SELECT KLKD_ID, KUN_ID FROM KUNDEN_V4
    WHERE KUN_NR BETWEEN {lowest} AND {highest} AND Ps_Id_Mandant = {client};
"""

# The log rows of a table, and of which keys.
CONDITIONS = """
dcTable = 'KUNDEN_V4' AND dlSuchId4 BETWEEN {lowest} AND {highest} AND dlSuchId2 = {client}
OR dcTable = 'PERSON_V4' AND dlPrimaryKey1 IN persons
OR dcTable = 'PERSONALIE' AND dlSuchId1 IN persons
OR dcTable = 'BANKKONTO' AND dlPrimaryKey1 IN (SELECT BK_ID FROM PERSON_BANKKONTO WHERE PS_ID IN persons
    UNION SELECT dlPrimaryKey1 FROM tProtokoll
    WHERE dcTable = 'PERSON_BANKKONTO' AND dlEvent = 2 AND dlPrimaryKey2 IN persons)
OR dcTable = 'STM_BKTOZUSATZ' AND dlSuchId1 IN (SELECT BK_ID FROM PERSON_BANKKONTO WHERE PS_ID IN persons)
OR dcTable = 'ADRESSE' AND dlPrimaryKey1 IN (SELECT ADR_ID FROM PERSON_ADRESSE WHERE PS_ID IN persons
    UNION SELECT dlPrimaryKey1 FROM tProtokoll
    WHERE dcTable = 'PERSON_ADRESSE' AND dlEvent = 2 AND dlPrimaryKey2 IN persons)
OR dcTable = 'PERSON_ADRESSE' AND dlPrimaryKey2 IN (SELECT dlSuchId1 FROM persons
    UNION SELECT dlPrimaryKey1 FROM tProtokoll
    WHERE dcTable = 'PERSON_ADRESSE' AND dlEvent = 2 AND dlPrimaryKey2 IN persons)
OR dcTable = 'TKULIEFKOND' AND dlPrimaryKey1 IN (SELECT KLKD_ID FROM customers)
OR dcTable = 'TKUNDVWZ' AND dlPrimaryKey1 IN (SELECT KUN_ID FROM customers
    UNION SELECT dlPrimaryKey2 FROM tProtokoll
    WHERE dcTable = 'TKUNDVWZ' AND dlEvent = 2 AND dlPrimaryKey1 IN (SELECT KUN_ID FROM customers))
"""

# From a logged table to the customer: a join of the live tables, and in it the column of the row's key.
CUSTOMER = (
    "KUNDEN_V4 AS customer JOIN PERSON_V4 AS person ON person.PS_ID = customer.Ps_Id_Kunde"
    " JOIN PERSONALIE AS data ON data.PS_ID = person.PS_ID"
)
ADDRESS = CUSTOMER + (
    " JOIN PERSON_ADRESSE AS link ON link.PS_ID = person.PS_ID JOIN ADRESSE AS address ON address.ADR_ID = link.ADR_ID"
)
ACCOUNT = CUSTOMER + (
    " JOIN PERSON_BANKKONTO AS link ON link.PS_ID = person.PS_ID JOIN BANKKONTO AS account ON account.BK_ID = link.BK_ID"
)
LIVE = {
    "KUNDEN_V4": (CUSTOMER, "customer.KUN_ID"),
    "PERSON_V4": (CUSTOMER, "person.PS_ID"),
    "PERSONALIE": (CUSTOMER, "data.Pl_Id"),
    "ADRESSE": (ADDRESS, "address.ADR_ID"),
    "PERSON_ADRESSE": (ADDRESS, "address.ADR_ID"),
    "BANKKONTO": (ACCOUNT, "account.BK_ID"),
    "PERSON_BANKKONTO": (ACCOUNT, "account.BK_ID"),
    "STM_BKTOZUSATZ": (ACCOUNT + " JOIN STM_BKTOZUSATZ AS more ON more.BKZ_Bk_Id = account.BK_ID", "more.BKZ_Id"),
    "TKUNDVWZ": (CUSTOMER + " JOIN TKUNDVWZ AS link ON link.FLKD = customer.KUN_ID"
                 " JOIN TVERWENDZWECK AS purpose ON purpose.IDVWZ = link.FLVWZ", "link.FLKD"),
}

# From a logged table to the person, when the live tables do not tell: the table in the log, and its column.
PERSON_IN_LOG = {
    "KUNDEN_V4": ("KUNDEN_V4", "dlSuchId1"),
    "TKUNDVWZ": ("TKUNDVWZ", "dlSuchId1"),
    "PERSONALIE": ("PERSONALIE", "dlSuchId1"),
    "ADRESSE": ("PERSON_ADRESSE", "dlPrimaryKey2"),
    "PERSON_ADRESSE": ("PERSON_ADRESSE", "dlPrimaryKey2"),
    "BANKKONTO": ("PERSON_BANKKONTO", "dlPrimaryKey2"),
    "PERSON_BANKKONTO": ("PERSON_BANKKONTO", "dlPrimaryKey2"),
}

# Of a logged table only these fields have a line, all but these, or these with words of their own.
SHOWN = {
    "PERSON_V4": {"PS_KURZNAME", "PS_USTIDFK", "PS_ZUHAENDEN"},
    "PERSONALIE": {"PL_BEZEICHNUNG"},
    "PERSON_ADRESSE": {"ADR_TYP"},
    "PERSON_BANKKONTO": set(),
}
HIDDEN = {
    "KUNDEN_V4": {"KUN_ID", "PS_ID_KUNDE", "KUN_DATUM", "KUN_MITARBEITER", "KUN_MEMO", "PS_ID_MANDANT"},
    "ADRESSE": {"ADR_ID", "LA_ID"},
    "BANKKONTO": {"BK_ID"},
}
WORDS = {
    "TKUNDVWZ": {"FLVWZ": "Verwendungszweck"},
    "TKULIEFKOND": {
        "DITAGEZAHLUNGSZIEL": "Anzahl Tage für die Berechnung des Fälligkeitsdatum",
        "DCBEZEICHNUNG": "Bezeichnung der Zahlungskondition",
        "DISKONTOSATZ1": "Prozentsatz für Skontoabzug",
        "DISKONTOSATZ2": "Prozentsatz für Skontoabzug",
        "DISKONTOTAGE1": "Anzahl Tage für Skontoabzug",
    },
}

# Fields that hold an id: the words for none, where the name stands, by which key, in which columns.
IDS = {
    "KLKD_ID": ("ohne Zahlungskonditionen", "TKULIEFKOND", "IDKLK", ["dcBezeichnung"]),
    "MB_ID": ("ohne Mahnbedingungen", "MAHNBEDINGUNGEN_V4", "MB_ID", ["Mb_Bezeichnung"]),
    "MTH_ID": ("ohne Texthauptgruppe", "TTEXTHAUPTGRUPPE", "IDTH", ["dcBezeichnung"]),
    "FLVWZ": ("ohne Verwendungszweck", "TVERWENDZWECK", "IDVWZ", ["dcBezeichnung"]),
    "BA_ID": ("ohne Bank", "TBANK", "idBank", ["dcBLZ", "dcBezeichnung"]),
    "PS_ID_SAMMEL_KUNDE": ("ohne Zentralregulierer", "KUNDEN_V4", "Ps_Id_Kunde", ["KUN_NR"]),
    "PS_ID_SAMMEL_LIEF": ("ohne Zentralregulierer", "KUNDEN_V4", "Ps_Id_Kunde", ["KUN_NR"]),
}

is_number = re.compile("[+-]?[0-9]+([.,][0-9]+)?").fullmatch


def caption_by_rule(table, field):
    """The words for a field, both in capitals: empty for one without a line, None for the log's own caption."""
    if table in WORDS:
        return WORDS[table].get(field, "")
    if table in SHOWN:
        return None if field in SHOWN[table] else ""
    return "" if field in HIDDEN.get(table, ()) else None


def id_in(value):
    """The whole number nearest to a value, 0 for one that is no number, None outside 32 bits."""
    value = value.strip(" ")
    if not is_number(value):
        return 0
    nearest = round(float(value.replace(",", ".")))
    return nearest if -2**31 <= nearest < 2**31 else None


def filter_text(client_name):
    return f"Mandant: {CLIENT_NUMBER} {client_name}, von Kunden-Nr: {LOWEST} bis Kunden-Nr: {HIGHEST}"


def select_customers(connection, client):
    connection.executescript(SELECTED.format(lowest=LOWEST, highest=HIGHEST, client=client))


def selected_by(client):
    return CONDITIONS.format(lowest=LOWEST, highest=HIGHEST, client=client)
