"""The six pieces of the demo project. Each loops; its bars before the loop are heard once."""

from score import Song, arpeggio

HARP, STRINGS, CHOIR, ORGAN, TUBULAR, OBOE, FLUTE, MUSIC_BOX = 46, 48, 52, 19, 14, 68, 73, 10
PIZZICATO, TIMPANI, BASSOON, HORN, CELLO, CELESTA, TREMOLO, TUBA = 45, 47, 70, 60, 42, 8, 44, 58


def mere():
    """The lake, going out. Harp and one voice."""
    song = Song("The lake goes out", 66, 3)
    harp = song.track(HARP, 92, 52, 70)
    chords = ("D3 A3 D4 F4", "C3 G3 C4 E4", "Bb2 F3 Bb3 D4", "A2 E3 A3 C4",
              "G2 D3 G3 Bb3", "D3 A3 D4 F4", "E3 Bb3 D4 G4", "A2 E3 A3 C#4")
    for chord in chords * 2 + chords:
        harp.play(arpeggio(chord, "0 1 2 3 2 1", 0.5), 62, 1.6)
    voice = song.track(OBOE, 84, 72, 80).rest(24)
    voice.play("A4*2 G4 | G4*1.5 F4*0.5 E4 | F4*2 D4 | E4*3 | D4*2 C4 | D4 F4 A4 | G4*1.5 F4*0.5 G4 | A4*3", 66)
    voice.play("A4*2 C5 | C5*1.5 Bb4*0.5 G4 | A4 Bb4 D5 | C5*3 | Bb4*1.5 A4*0.5 G4 | A4*2 F4 | "
               "E4*1.5 D4*0.5 E4 | C#4*3", 70)
    low = song.track(CELLO, 78, 60, 70).rest(24)
    low.play("D3*3 C3*3 Bb2*3 A2*3 G2*3 D3*3 E3*3 A2*3", 56, 0.98, 2)
    return song, 24, 72


def cloister():
    """Four walks and a chant that somebody still keeps."""
    song = Song("Forty pairs of feet", 60)
    choir = song.track(CHOIR, 86, 64, 100)
    bars = ("D3,A3,D4", "C3,G3,E4", "D3,A3,F4", "A2,E3,C4", "F3,C4,F4", "G3,B3,D4", "A2,E3,E4", "D3,A3,D4")
    choir.play(" ".join(f"{bar}*4" for bar in ("D3,A3,D4", "D3,A3,E4") + bars * 2), 50, 0.99)
    harp = song.track(HARP, 76, 44, 80).rest(8)
    for chord in ("D3 A3 D4 F4", "C3 G3 C4 E4", "D3 A3 D4 A4", "A2 E3 A3 C4", "F3 C4 F4 A4", "G3 B3 D4 G4",
                  "A2 E3 A3 E4", "D3 A3 D4 A4") * 2:
        harp.play(arpeggio(chord, "0 1 2 3 2 1 2 1", 0.5), 54, 1.4)
    chant = song.track(BASSOON, 82, 74, 80).rest(8)
    chant.play("r*2 D4 E4 | E4*1.5 D4*0.5 C4*2 | D4 F4 G4 F4 | E4*3 r | "
               "F4 G4 A4*2 | B4*1.5 A4*0.5 G4*2 | E4 F4 E4 D4 | D4*3 r", 66)
    chant.play("r*2 A4 A4 | G4*1.5 A4*0.5 G4 E4 | F4 G4 A4 C5 | B4*1.5 A4*0.5 A4*2 | "
               "C5 B4 A4 F4 | G4*1.5 F4*0.5 D4*2 | E4 G4 F4 E4 | D4*4", 70)
    bell = song.track(TUBULAR, 60, 84, 110)
    bell.play("D3*8 r*28 A3*4 r*32", 44, 0.9)
    return song, 8, 72


def ossuary():
    """Sorted bones: a bass that counts, and pizzicato that answers."""
    song = Song("Sorted by kind", 54)
    bass = song.track(CELLO, 92, 58, 80)
    line = "E2*3 F2 | E2*2 D2*2 | C2*3 D2 | B1*4 | E2*3 F2 | G2*2 F2*2 | E2*2 D#2*2 | E2*4"
    bass.play("E2*4 E2*4 " + line + " " + line, 60, 0.96)
    ticks = song.track(PIZZICATO, 84, 84, 60).rest(8)
    figure = "r E4*0.5 r*0.5 B3*0.5 r*0.5 r | r*0.5 C4*0.5 r B3*0.5 r*0.5 E4*0.5 r*0.5 | "
    ticks.play(figure * 2 + figure + "r*0.5 F4*0.5 E4*0.5 r*0.5 D#4*0.5 r*0.5 B3*0.5 r*0.5 | r*4", 52, 0.5, 2)
    air = song.track(TREMOLO, 66, 40, 100)
    air.play("B3,E4*8 C4,F4*8 B3,E4*8 A3,C4*8 B3,E4*8 C4,F4*8 B3,D#4*8 B3,E4*8 B3,E4*8", 38, 0.99)
    solo = song.track(BASSOON, 80, 70, 80).rest(8 + 32)
    solo.play("E3*1.5 F3*0.5 G3*2 | F3 E3 D3*2 | E3*1.5 D3*0.5 C3*2 | B2*3 r | "
              "E3*1.5 G3*0.5 B3*2 | C4 B3 A3*2 | G3 F3 F#3 D#3 | E3*4", 64)
    return song, 8, 72


def orchard():
    """Grass, and a sky that passes over like a boat."""
    song = Song("Under the lake, trees", 84, 3)
    box = song.track(MUSIC_BOX, 84, 74, 80)
    chords = ("F3 C4 F4 A4", "G3 B3 D4 G4", "F3 C4 F4 A4", "E3 B3 E4 G4",
              "D3 A3 D4 F4", "G3 B3 D4 G4", "C3 G3 C4 E4", "C3 G3 B3 E4")
    for chord in ("F3 C4 F4 A4", "G3 B3 D4 G4") + chords * 3:
        box.play(arpeggio(chord, "0 2 3 2 1 2", 0.5), 50, 1.5)
    flute = song.track(FLUTE, 84, 58, 80).rest(6 + 24)
    flute.play("C5*2 B4 | D5*1.5 C5*0.5 B4 | A4*2 C5 | B4*3 | A4 F4 A4 | G4*1.5 A4*0.5 B4 | C5*2 E4 | G4*3", 64)
    flute.play("A4*1.5 B4*0.5 C5 | D5*2 G5 | F5*1.5 E5*0.5 C5 | E5*3 | F5 E5 D5 | D5*1.5 C5*0.5 B4 | "
               "G4 B4 D5 | C5*3", 70)
    low = song.track(STRINGS, 70, 64, 80).rest(6)
    low.play("F2,C3*3 G2,D3*3 F2,C3*3 E2,B2*3 D2,A2*3 G2,D3*3 C2,G2*3 C2,G2*3", 46, 0.98, 3)
    glint = song.track(CELESTA, 62, 92, 100).rest(6)
    glint.play("r*2 A6*0.5 G6*0.5 r*9 r*2 D6*0.5 E6*0.5 r*9", 42, 0.8, 3)
    return song, 6, 78


def battle():
    """Something has hold of your sleeve."""
    song = Song("Something has hold of your sleeve", 138)
    low = song.track(STRINGS, 104, 54, 40)
    drive = "D2*0.5 D3*0.5 D2*0.5 D2*0.5 F2*0.5 D2*0.5 E2*0.5 D2*0.5"
    lift = "Bb1*0.5 Bb2*0.5 Bb1*0.5 Bb1*0.5 C2*0.5 C3*0.5 C2*0.5 C#2*0.5"
    part = (drive + " ") * 3 + lift + " "
    other = ("G1*0.5 G2*0.5 G1*0.5 G1*0.5 Bb1*0.5 G1*0.5 A1*0.5 G1*0.5 " * 2
             + "A1*0.5 A2*0.5 A1*0.5 A1*0.5 C#2*0.5 A1*0.5 E2*0.5 A1*0.5 " * 2)
    low.play(drive + " " + drive + " " + part * 2 + other + part, 84, 0.7)
    drum = song.track(TIMPANI, 108, 64, 40)
    beat = "D2 r*0.5 D2*0.5 A2 D2*0.5 D2*0.5 "
    drum.play(beat * 2 + beat * 15 + "D2*0.5 D2*0.5 A2*0.5 A2*0.5 D2*0.25 D2*0.25 D2*0.25 D2*0.25 A2", 82, 0.8)
    horn = song.track(HORN, 100, 74, 60).rest(8)
    horn.play("D4*1.5 E4*0.5 F4*2 | E4 D4 A3*2 | D4*1.5 E4*0.5 F4 A4 | G4*2 F4 E4 | "
              "A4*1.5 Bb4*0.5 A4*2 | G4 F4 D4*2 | F4*1.5 E4*0.5 D4 C4 | Bb3*2 C4 C#4 | "
              "D4*2 G4*2 | Bb4*1.5 A4*0.5 G4*2 | A4*2 G4 F4 | E4*3 C#4 | "
              "D4*1.5 E4*0.5 F4*2 | A4 G4 F4*2 | D5*1.5 C5*0.5 Bb4 A4 | G4 Bb4 C5 C#5", 84)
    quick = song.track(PIZZICATO, 84, 44, 50).rest(8)
    quick.play(("A4*0.5 D5*0.5 F5*0.5 D5*0.5 " * 6 + "F4*0.5 Bb4*0.5 D5*0.5 Bb4*0.5 G4*0.5 C5*0.5 E5*0.5 C5*0.5 ") * 2
               + "Bb4*0.5 D5*0.5 G5*0.5 D5*0.5 " * 4 + "C#5*0.5 E5*0.5 A5*0.5 E5*0.5 " * 4
               + "A4*0.5 D5*0.5 F5*0.5 D5*0.5 " * 6 + "F4*0.5 Bb4*0.5 D5*0.5 Bb4*0.5 "
               + "G4*0.5 C5*0.5 E5*0.5 C#5*0.5 ", 66, 0.6)
    return song, 8, 72


def prior():
    """The last hour of the day, for forty years."""
    song = Song("Compline", 96)
    organ = song.track(ORGAN, 96, 64, 90)
    figure = ("C5*0.25 B4*0.25 C5*0.25 G4*0.25 Eb4*0.25 G4*0.25 C5*0.25 D5*0.25 "
              "Eb5*0.5 D5*0.25 C5*0.25 B4*0.5 G4*0.5 ")
    second = ("Ab4*0.25 G4*0.25 Ab4*0.25 F4*0.25 C4*0.25 F4*0.25 Ab4*0.25 Bb4*0.25 "
              "C5*0.5 Bb4*0.25 Ab4*0.25 G4*0.5 F4*0.5 ")
    third = ("G4*0.25 F#4*0.25 G4*0.25 D4*0.25 B3*0.25 D4*0.25 G4*0.25 A4*0.25 "
             "B4*0.5 A4*0.25 G4*0.25 F4*0.5 D4*0.5 ")
    fourth = ("Eb5*0.25 D5*0.25 Eb5*0.25 C5*0.25 G4*0.25 C5*0.25 Eb5*0.25 F5*0.25 "
              "G5*0.5 F5*0.25 Eb5*0.25 D5*0.5 B4*0.5 ")
    organ.play("C3,G3,C4,Eb4,G4*4 B2,G3,D4,F4,G4*4", 80)
    organ.play((figure + second + third + figure) + (fourth + second + third + figure), 74, 0.9, 2)
    pedal = song.track(ORGAN, 100, 60, 90)
    pedal.play("C2*4 G1*4", 84)
    pedal.play("C2*4 F2*4 G2*4 C2*4 C2*2 Bb1*2 Ab1*4 G1*4 C2*4", 84, 0.97, 2)
    choir = song.track(CHOIR, 92, 70, 110).rest(8 + 32)
    choir.play("G4,Eb4*4 Ab4,C4*4 G4,D4*2 F4,B3*2 Eb4,C4*4 Bb4,G4*2 C5,G4*2 C5,Ab4*4 B4,G4*4 C5,G4*4", 70, 0.99)
    bell = song.track(TUBULAR, 90, 64, 110)
    bell.play("C4*8 " + "C4*8 G3*8 C4*8 G3*8 " * 2, 74)
    drum = song.track(TIMPANI, 100, 64, 60).rest(8)
    drum.play("C2*2 G1 C2 | F2*2 C2*2 | G1*2 G1 G1*0.5 G1*0.5 | C2*4 |" * 4, 74)
    return song, 8, 72


PIECES = {"BGM/mere.mid": mere, "BGM/cloister.mid": cloister, "BGM/ossuary.mid": ossuary,
          "BGM/orchard.mid": orchard, "BGM/battle.mid": battle, "BGM/prior.mid": prior}
