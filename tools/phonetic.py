"""Phonetic values of the signs: Gardiner's uniliterals, biliterals and
triliterals, and the common word signs, for every such sign of the Basic list.

Values are written in the plain letters of the typewriter transliteration
(A aleph, i yod, a ayin, H h-dot, x kh, X h-underline, S sh, q q-dot, T tj,
D dj; z is the s of the door bolt O34, s the s of the folded cloth S29).

Two orders matter, and both are the file's row order:

- the first row of a sign is what Guess reads from that sign, so a sign's usual
  value comes first (F18 is bH before Hw, Q1 is st before ws);
- the first row of a value is the sign a typed value brings into the composer,
  so a value's usual sign must come before its rarer ones. Signs that share a
  value with a commoner sign later in the list wait in SECONDARY, at the end.

A word sign is here when the sign stands for its word alone (G5 Horus, S12
gold, V20 ten); signs that are only determinatives are not, since Guess would
add their sound to every word they close. Only values that Gardiner's sign
list gives plainly are here.
"""

# The uniliterals: the usual sign of each sound first, then the alternatives.
# M17a, the double reed, is Gardiner's first sign for y; the two strokes Z4 are
# the second.
UNILITERALS = [
    ("G1", "A"), ("M17", "i"), ("M17a", "y"), ("Z4", "y"), ("D36", "a"), ("G43", "w"),
    ("D58", "b"), ("Q3", "p"), ("I9", "f"), ("G17", "m"), ("N35", "n"),
    ("D21", "r"), ("O4", "h"), ("V28", "H"), ("Aa1", "x"), ("F32", "X"),
    ("O34", "z"), ("S29", "s"), ("N37", "S"), ("N29", "q"), ("V31", "k"),
    ("W11", "g"), ("X1", "t"), ("V13", "T"), ("D46", "d"), ("I10", "D"),
    ("Z7", "w"),   # the coil, the hieratic form of the quail chick
    ("S3", "n"),   # the red crown, n by its name nt
    ("W12", "g"),  # the jar stand without the jar
    ("N38", "S"),  # the deep basin
    ("N39", "S"),  # the pool with water
]

# Biliterals, triliterals and word signs, in the order of the sign list. A
# sign's rows stand together, its usual value first.
MULTILITERALS = [
    # A: man and his occupations
    ("A17", "Xrd"), ("A20", "smsw"), ("A21", "sr"), ("A48", "iry"), ("A50", "Sps"),
    ("A51", "Sps"), ("A53", "twt"),
    # C: gods
    ("C3", "DHwty"), ("C4", "Xnmw"), ("C6", "inpw"), ("C7", "stX"), ("C8", "mnw"),
    ("C11", "HH"), ("C12", "imn"),
    # D: parts of the human body
    ("D1", "tp"), ("D2", "Hr"), ("D4", "ir"), ("D10", "wDAt"), ("D19", "fnD"),
    ("D24", "spt"), ("D25", "spty"), ("D27", "mnD"), ("D28", "kA"), ("D31", "HmkA"),
    ("D33", "Xn"), ("D34", "aHA"), ("D45", "Dsr"), ("D50", "Dba"), ("D52", "mt"),
    ("D53", "bAH"), ("D56", "rd"), ("D60", "wab"), ("D61", "sAH"),
    # E: mammals
    ("E1", "kA"), ("E9", "iw"), ("E15", "inpw"), ("E17", "zAb"), ("E20", "stX"),
    ("E22", "mAi"), ("E23", "rw"), ("E26", "Abw"), ("E34", "wn"),
    # F: parts of mammals
    ("F4", "HAt"), ("F5", "SsA"), ("F9", "pHty"), ("F12", "wsr"), ("F13", "wp"),
    ("F16", "ab"), ("F18", "bH"), ("F18", "Hw"), ("F20", "ns"), ("F21", "sDm"),
    ("F22", "pH"), ("F23", "xpS"), ("F25", "wHm"), ("F26", "Xn"), ("F29", "sti"),
    ("F30", "Sd"), ("F31", "ms"), ("F33", "sd"), ("F34", "ib"), ("F35", "nfr"),
    ("F36", "smA"), ("F39", "imAx"), ("F40", "Aw"), ("F42", "spr"), ("F44", "iwa"),
    ("F46", "pXr"),
    # G: birds
    ("G4", "tyw"), ("G5", "Hr"), ("G14", "mwt"), ("G14", "nr"), ("G15", "mwt"),
    ("G16", "nbty"), ("G18", "mm"), ("G21", "nH"), ("G22", "Db"), ("G23", "rxyt"),
    ("G24", "rxyt"), ("G25", "Ax"), ("G26", "DHwty"), ("G27", "dSr"), ("G28", "gm"),
    ("G29", "bA"), ("G30", "bAw"), ("G32", "baH"), ("G35", "aq"), ("G36", "wr"),
    ("G38", "gb"), ("G39", "zA"), ("G39", "sA"), ("G40", "pA"), ("G41", "pA"),
    ("G42", "wSA"), ("G47", "TA"), ("G53", "bA"), ("G54", "snD"),
    # H: parts of birds
    ("H6", "Sw"), ("H6", "mAat"),
    # I: amphibious animals and reptiles
    ("I1", "aSA"), ("I4", "sbk"), ("I5", "sAq"), ("I6", "km"), ("I8", "Hfn"),
    # K: fishes
    ("K1", "in"), ("K3", "aD"), ("K4", "XA"), ("K5", "bs"),
    # L: invertebrates
    ("L1", "xpr"), ("L2", "bit"), ("L7", "srqt"),
    # M: trees and plants
    ("M1", "iAm"), ("M2", "Hn"), ("M3", "xt"), ("M4", "rnp"), ("M6", "tr"),
    ("M8", "SA"), ("M9", "zSn"), ("M11", "wdn"), ("M12", "xA"), ("M13", "wAD"),
    ("M14", "wAD"), ("M16", "HA"), ("M18", "ii"), ("M20", "sxt"), ("M21", "sm"),
    ("M22a", "nn"), ("M23", "sw"), ("M26", "Sma"), ("M29", "nDm"), ("M30", "bnr"),
    ("M34", "bdt"), ("M36", "Dr"), ("M40", "is"), ("M44", "spd"),
    # N: sky, earth and water
    ("N5", "ra"), ("N9", "psD"), ("N11", "iaH"), ("N12", "iaH"), ("N14", "sbA"),
    ("N14", "dwA"), ("N15", "dwAt"), ("N16", "tA"), ("N17", "tA"), ("N20", "wDb"),
    ("N24", "spAt"), ("N25", "xAst"), ("N26", "Dw"), ("N27", "Axt"), ("N28", "xa"),
    ("N30", "iAt"), ("N31", "wAt"), ("N35a", "mw"), ("N40", "Sm"),
    # O: buildings and their parts
    ("O1", "pr"), ("O6", "Hwt"), ("O11", "aH"), ("O15", "wsxt"), ("O18", "kAr"),
    ("O22", "sH"), ("O25", "txn"), ("O28", "iwn"), ("O29", "aA"), ("O33", "srx"),
    ("O35", "zb"), ("O36", "inb"), ("O42", "Ssp"), ("O44", "iAt"), ("O47", "nxn"),
    ("O48", "nxn"), ("O49", "niwt"), ("O50", "zp"), ("O50", "sp"), ("O51", "Snwt"),
    # P: ships
    ("P4", "wHa"), ("P5", "TAw"), ("P6", "aHa"), ("P8", "xrw"),
    # Q: furniture
    ("Q1", "st"), ("Q1", "ws"), ("Q2", "ws"), ("Q6", "qrs"),
    # R: temple furniture and sacred emblems
    ("R4", "Htp"), ("R5", "kp"), ("R7", "snTr"), ("R8", "nTr"), ("R11", "Dd"),
    ("R13", "imnt"), ("R14", "imnt"), ("R15", "iAb"), ("R22", "xm"),
    # S: crowns, dress, staves
    ("S1", "HDt"), ("S2", "HDt"), ("S3", "dSrt"), ("S4", "dSrt"), ("S5", "sxmty"),
    ("S6", "sxmty"), ("S7", "xprS"), ("S8", "Atf"), ("S9", "Swty"), ("S10", "mDH"),
    ("S11", "wsx"), ("S12", "nbw"), ("S15", "tHn"), ("S18", "mnit"), ("S19", "sDAw"),
    ("S20", "xtm"), ("S22", "sT"), ("S23", "dmD"), ("S24", "Ts"), ("S26", "Sndyt"),
    ("S27", "mnxt"), ("S30", "sf"), ("S32", "siA"), ("S33", "Tbt"), ("S34", "anx"),
    ("S35", "Swt"), ("S36", "Swt"), ("S37", "xw"), ("S38", "HqA"), ("S39", "awt"),
    ("S40", "wAs"), ("S41", "Dam"), ("S42", "sxm"), ("S42", "abA"), ("S42", "xrp"),
    ("S43", "md"), ("S44", "Ams"), ("S45", "nxAxA"),
    # T: warfare, hunting, butchery
    ("T3", "HD"), ("T9", "pD"), ("T10", "pD"), ("T12", "rwD"), ("T13", "rs"),
    ("T18", "Sms"), ("T19", "qs"), ("T20", "qs"), ("T21", "wa"), ("T22", "sn"),
    ("T25", "DbA"), ("T28", "Xr"), ("T29", "nmt"), ("T31", "sSm"), ("T32", "sSm"),
    ("T34", "nm"), ("T35", "nm"),
    # U: agriculture, crafts and professions
    ("U1", "mA"), ("U2", "mA"), ("U6", "mr"), ("U7", "mr"), ("U13", "hb"),
    ("U13", "Sna"), ("U15", "tm"), ("U16", "biA"), ("U17", "grg"), ("U21", "stp"),
    ("U22", "mnx"), ("U23", "Ab"), ("U24", "Hmt"), ("U25", "Hmt"), ("U26", "wbA"),
    ("U28", "DA"), ("U29", "DA"), ("U30", "tA"), ("U32", "smn"), ("U33", "ti"),
    ("U34", "xsf"), ("U35", "xsf"), ("U36", "Hm"), ("U38", "mxAt"),
    # V: rope, fibre, baskets, bags
    ("V1", "St"), ("V4", "wA"), ("V5", "snT"), ("V6", "Ss"), ("V7", "Sn"),
    ("V12", "arq"), ("V15", "iT"), ("V16", "zA"), ("V17", "zA"), ("V20", "mD"),
    ("V22", "mH"), ("V23", "mH"), ("V24", "wD"), ("V25", "wD"), ("V26", "aD"),
    ("V29", "wAH"), ("V29", "sk"), ("V30", "nb"), ("V33", "sSr"), ("V37", "idr"),
    # W: vessels of stone and earthenware
    ("W2", "bAs"), ("W3", "Hb"), ("W4", "Hb"), ("W9", "Xnm"), ("W10", "iab"),
    ("W14", "Hs"), ("W15", "qbH"), ("W16", "qbH"), ("W17", "xnt"), ("W18", "xnt"),
    ("W19", "mi"), ("W24", "nw"), ("W25", "ini"),
    # X: loaves and cakes
    ("X6", "pAt"), ("X8", "di"),
    # Y: writings, games, music
    ("Y3", "zS"), ("Y3", "sS"), ("Y4", "zS"), ("Y5", "mn"), ("Y6", "ibA"),
    ("Y8", "zSSt"),
    # Z: strokes and figures
    ("Z9", "swA"), ("Z9", "sD"), ("Z11", "imi"),
    # Aa: unclassified
    ("Aa5", "Hp"), ("Aa8", "qn"), ("Aa11", "mAa"), ("Aa12", "mAa"), ("Aa13", "gs"),
    ("Aa13", "im"), ("Aa13", "m"), ("Aa15", "im"), ("Aa15", "m"), ("Aa16", "gs"),
    ("Aa17", "sA"), ("Aa18", "sA"), ("Aa20", "apr"), ("Aa21", "wDa"), ("Aa27", "nD"),
    ("Aa28", "qd"), ("Aa29", "qd"), ("Aa30", "Xkr"), ("Aa31", "Xkr"),
]

# Signs that share a value with a commoner sign that comes later in the list:
# kept after all the others, so that a typed value brings the commoner sign.
SECONDARY = [
    ("C10", "mAat"),  # the goddess with the feather; the feather H6 is the usual
    ("D35", "n"),    # the arms of negation; the water N35 is the usual n
    ("D37", "di"),   # the arm giving a loaf; the loaf X8 is the usual di
    ("D37", "rdi"),
    ("D38", "mi"),   # the arm with a round loaf; the jug W19 is the usual mi
    ("D42", "mH"),   # the forearm, the cubit; the whip V22 is the usual mH
    ("D43", "xw"),   # the arm with a flail; the fan S37 is the usual xw
    ("D48", "Ssp"),  # the palm; the fence O42 is the usual Ssp
    ("D59", "ab"),   # the foot and arm; the horn F16 is the usual ab
    ("E8", "ib"),    # the kid; the heart F34 is the usual ib
    ("M42", "wn"),   # the flower; the hare E34 is the usual wn
    ("N18", "iw"),   # the island; the calf E9 is the usual iw
    ("S14", "HD"),   # the collar with a mace, silver; the mace T3 is the usual HD
    ("N36", "mr"),   # the canal; the hoe U6 is the usual mr
    ("N41", "Hm"),   # the well; the club U36 is the usual Hm
    ("N42", "Hm"),   # the well with a line of water, the same
    ("U19", "nw"),   # the adze; the pot W24 is the usual nw
    ("V1", "Sn"),    # the coil of rope; the cord V7 is the usual Sn
]

ROWS = UNILITERALS + MULTILITERALS + SECONDARY

# The letters a phonetic value may use.
LETTERS = set("AiyawbpfmnrhHxXzsSqkgtTdD")
MAX_ROWS = 501
