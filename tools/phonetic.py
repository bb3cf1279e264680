"""Phonetic values of the signs: Gardiner's uniliterals, biliterals and triliterals.

Values are written in the plain letters of the typewriter transliteration
(A aleph, i yod, a ayin, H h-dot, x kh, X h-underline, S sh, q q-dot, T tj,
D dj). A sign with two values has two rows; the first row of a sign is the one
used when a transliteration is guessed from signs, and the first row of a value
is the sign that a typed value brings into the composer, so the common sign
comes first. Only values that Gardiner's sign list gives plainly are here.
"""

# The uniliterals: the usual sign of each sound first, then the alternatives.
UNILITERALS = [
    ("G1", "A"), ("M17", "i"), ("Z4", "y"), ("D36", "a"), ("G43", "w"),
    ("D58", "b"), ("Q3", "p"), ("I9", "f"), ("G17", "m"), ("N35", "n"),
    ("D21", "r"), ("O4", "h"), ("V28", "H"), ("Aa1", "x"), ("F32", "X"),
    ("O34", "z"), ("S29", "s"), ("N37", "S"), ("N29", "q"), ("V31", "k"),
    ("W11", "g"), ("X1", "t"), ("V13", "T"), ("D46", "d"), ("I10", "D"),
    ("Z7", "w"),   # the coil, the hieratic form of the quail chick
    ("S3", "n"),   # the red crown, n by its name nt
]

# Biliterals and triliterals, in the order of the sign list.
MULTILITERALS = [
    ("C11", "HH"),
    ("D1", "tp"), ("D2", "Hr"), ("D4", "ir"), ("D28", "kA"), ("D45", "Dsr"),
    ("D50", "Dba"), ("D52", "mt"), ("D56", "rd"), ("D60", "wab"),
    ("E9", "iw"), ("E23", "rw"), ("E34", "wn"),
    ("F4", "HAt"), ("F12", "wsr"), ("F13", "wp"), ("F16", "ab"), ("F18", "bH"),
    ("F18", "Hw"), ("F20", "ns"), ("F21", "sDm"), ("F22", "pH"), ("F25", "wHm"),
    ("F31", "ms"), ("F34", "ib"), ("F35", "nfr"), ("F36", "smA"), ("F40", "Aw"),
    ("G4", "tyw"), ("G21", "nH"), ("G25", "Ax"), ("G27", "dSr"), ("G28", "gm"),
    ("G29", "bA"), ("G35", "aq"), ("G36", "wr"), ("G38", "gb"), ("G39", "zA"),
    ("G40", "pA"), ("G47", "TA"), ("G54", "snD"),
    ("H6", "Sw"),
    ("I6", "km"),
    ("K1", "in"), ("K3", "aD"),
    ("L1", "xpr"), ("L2", "bit"),
    ("M2", "Hn"), ("M3", "xt"), ("M8", "SA"), ("M12", "xA"), ("M16", "HA"),
    ("M23", "sw"), ("M29", "nDm"), ("M30", "bnr"), ("M36", "Dr"), ("M40", "is"),
    ("M44", "spd"),
    ("N5", "ra"), ("N14", "sbA"), ("N14", "dwA"), ("N16", "tA"), ("N26", "Dw"),
    ("N28", "xa"), ("N35a", "mw"),
    ("O1", "pr"), ("O6", "Hwt"), ("O11", "aH"), ("O28", "iwn"), ("O29", "aA"),
    ("O42", "Ssp"),
    ("P6", "aHa"), ("P8", "xrw"),
    ("Q1", "st"),
    ("R4", "Htp"), ("R8", "nTr"), ("R11", "Dd"),
    ("S11", "wsx"), ("S24", "Ts"), ("S34", "anx"), ("S38", "HqA"), ("S40", "wAs"),
    ("S42", "sxm"), ("S43", "md"),
    ("T3", "HD"), ("T13", "rs"), ("T18", "Sms"), ("T21", "wa"), ("T22", "sn"),
    ("T34", "nm"),
    ("U1", "mA"), ("U6", "mr"), ("U15", "tm"), ("U22", "mnx"), ("U23", "Ab"),
    ("U28", "DA"), ("U33", "ti"), ("U36", "Hm"),
    ("V4", "wA"), ("V6", "Ss"), ("V7", "Sn"), ("V22", "mH"), ("V24", "wD"),
    ("V29", "wAH"), ("V29", "sk"), ("V30", "nb"),
    ("W3", "Hb"), ("W9", "xnm"), ("W14", "Hs"), ("W17", "xnt"), ("W19", "mi"),
    ("W24", "nw"),
    ("X8", "di"),
    ("Y5", "mn"),
    ("Aa11", "mAa"), ("Aa17", "sA"), ("Aa27", "nD"),
]

# Signs that share a value with a commoner sign above: kept after all the
# others, so that a typed value brings the commoner sign.
SECONDARY = [
    ("E8", "ib"),    # the kid; the heart F34 is the usual ib
    ("K4", "xA"),    # the oxyrhynchus fish; the lotus M12 is the usual xA
    ("M42", "wn"),   # the flower; the hare E34 is the usual wn
    ("N36", "mr"),   # the canal; the hoe U6 is the usual mr
    ("N41", "Hm"),   # the well; the club U36 is the usual Hm
]

ROWS = UNILITERALS + MULTILITERALS + SECONDARY

# The letters a phonetic value may use.
LETTERS = set("AiyawbpfmnrhHxXzsSqkgtTdD")
MAX_ROWS = 501
