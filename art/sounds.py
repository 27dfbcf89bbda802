"""Makes the sounds of the screens: 44100 Hz, 16 bit, mono.

    sounds.py FOLDER             writes NAME.wav of every sound
    sounds.py FOLDER --plot PNG  also draws their envelopes and spectra, to look at

A sound is a sum of strikes. A strike is a burst of filtered noise and a few modes, which are
sines that die away: what is hit rings in its own pitches. Frequencies are in Hz, times in seconds.
"""
import argparse
import os
import wave

import numpy as np
from PIL import Image, ImageDraw
from scipy.signal import butter, fftconvolve, sosfilt, stft

RATE = 44100
SILENCE = 10 ** (-54 / 20)  # of the peak: anything softer at either end is cut off
FADE_IN = 0.0015
FADE_OUT = 0.12  # of the length


def frames(seconds):
    return int(round(seconds * RATE))


def times(seconds):
    return np.arange(frames(seconds)) / RATE


def band(signal, low, high, order=2):
    """The part of a signal between two frequencies; None leaves a side open."""
    if low is None:
        sections = butter(order, high, 'lowpass', fs=RATE, output='sos')
    elif high is None:
        sections = butter(order, low, 'highpass', fs=RATE, output='sos')
    else:
        sections = butter(order, (low, high), 'bandpass', fs=RATE, output='sos')
    return sosfilt(sections, signal)


def burst(random, level, low, high, decay, attack=0.0008, seconds=None):
    """Noise between two frequencies that rises and dies away."""
    t = times(seconds or 7 * decay + attack)
    noise = band(random.standard_normal(len(t)), low, high)
    return level * noise / np.std(noise) * np.minimum(t / attack, 1) * np.exp(-t / decay)


def ring(random, modes, attack=0.0008):
    """modes: (frequency, level, decay) each, begun at random phases."""
    t = times(7 * max(decay for _, _, decay in modes))
    sound = sum(level * np.sin(2 * np.pi * frequency * t + random.uniform(0, 2 * np.pi)) * np.exp(-t / decay)
                for frequency, level, decay in modes)
    return sound * np.minimum(t / attack, 1)


def put(sound, piece, start):
    """Adds a piece to a sound; anything beyond its end is lost."""
    first = frames(start)
    length = max(0, min(len(piece), len(sound) - first))
    sound[first:first + length] += piece[:length]


def smooth_chance(random, seconds, rate):
    """A curve about 0 with a deviation of 1 that wanders `rate` times a second."""
    points = random.standard_normal(int(seconds * rate) + 4)
    t = times(seconds) * rate
    curve = np.interp(t, np.arange(len(points)), points)
    return band(curve, None, 2 * rate, 1)


def key(random):
    """The type strikes the platen, and the carriage jumps on by a letter."""
    sound = np.zeros(frames(0.145))
    put(sound, burst(random, 0.05, 700, 2500, 0.003), 0)  # the key leaves its rest
    put(sound, burst(random, 0.42, 1000, 6500, 0.0045), 0.013)
    put(sound, ring(random, [(1930, 0.30, 0.010), (2870, 0.18, 0.008), (4310, 0.08, 0.005)]), 0.013)
    put(sound, ring(random, [(163, 0.36, 0.015), (286, 0.36, 0.012), (495, 0.30, 0.010)], 0.002), 0.013)
    put(sound, burst(random, 0.13, 900, 3600, 0.004), 0.060)  # the ratchet
    put(sound, ring(random, [(98, 0.26, 0.016), (178, 0.24, 0.014), (640, 0.12, 0.009)], 0.003), 0.064)
    return sound


def paper(random):
    """One sheet drawn over another: slow, faster, slow, and the sheet's edge comes free."""
    seconds = 0.34
    t = times(seconds)
    speed = np.sin(np.pi * np.clip(t / 0.27, 0, 1)) ** 1.3
    slow = band(random.standard_normal(len(t)), 900, 3200)
    fast = band(random.standard_normal(len(t)), 2600, 9000)
    rub = (slow / np.std(slow)) * speed * (1 - 0.6 * speed) + (fast / np.std(fast)) * 0.55 * speed ** 2
    rub *= np.clip(1 + 0.38 * smooth_chance(random, seconds, 90), 0.15, None)  # the fibres
    sound = 0.5 * rub
    for start in np.sort(random.uniform(0.03, 0.25, 26)):
        put(sound, burst(random, random.uniform(0.05, 0.32), 1500, 7500, 0.0011), start)
    put(sound, burst(random, 0.34, 700, 4200, 0.012, 0.006), 0.255)
    return band(sound, 300, None)


def switch(random):
    """A lever is pushed against its spring, and snaps over."""
    sound = np.zeros(frames(0.26))
    put(sound, burst(random, 0.07, 500, 2200, 0.010, 0.008), 0)
    put(sound, burst(random, 0.10, 1500, 5000, 0.0025), 0.014)
    put(sound, burst(random, 0.40, 600, 4200, 0.006), 0.030)
    put(sound, ring(random, [(870, 0.28, 0.018), (1510, 0.19, 0.013), (2640, 0.10, 0.008)]), 0.030)
    put(sound, ring(random, [(128, 0.42, 0.022), (217, 0.38, 0.018), (382, 0.30, 0.014)], 0.002), 0.030)
    put(sound, burst(random, 0.09, 700, 3600, 0.003), 0.060)  # it bounces
    put(sound, ring(random, [(170, 0.13, 0.014), (905, 0.06, 0.010)], 0.002), 0.060)
    return sound


def stamp(random):
    """A rubber stamp comes down on paper on a wooden desk, and is pulled off."""
    sound = np.zeros(frames(0.30))
    put(sound, ring(random, [(92, 0.46, 0.030), (154, 0.44, 0.024), (268, 0.34, 0.018)], 0.003), 0)
    put(sound, burst(random, 0.34, 350, 2600, 0.010, 0.0015), 0.001)
    put(sound, ring(random, [(560, 0.24, 0.013), (1120, 0.10, 0.008)], 0.002), 0.001)
    put(sound, burst(random, 0.045, 1100, 4200, 0.018, 0.014), 0.155)
    put(sound, burst(random, 0.030, 400, 1400, 0.006, 0.002), 0.178)
    return sound


def drawer(random):
    """A drawer is pulled out: wood slides on wood, in short rubs, and stops."""
    seconds = 0.40
    sound = np.zeros(frames(seconds))
    t = times(seconds)
    slide = band(random.standard_normal(len(t)), 180, 1400)
    rub = 0.6 + 0.4 * smooth_chance(random, seconds, 45)[:len(t)]
    sound += 0.35 * slide / np.std(slide) * rub * np.sin(np.pi * np.clip(t / 0.30, 0, 1)) ** 1.5
    put(sound, burst(random, 0.5, 120, 900, 0.018), 0.285)
    put(sound, ring(random, [(118, 0.9, 0.030), (236, 0.5, 0.020), (412, 0.25, 0.012)]), 0.285)
    return sound


def telephone(random):
    """The two gongs of a field telephone in its wooden box, cranked for one ring."""
    sound = np.zeros(frames(1.35))
    gongs = [[(1385, 0.50, 0.16), (2905, 0.30, 0.12), (4790, 0.16, 0.09), (6710, 0.06, 0.05)],
             [(1542, 0.46, 0.15), (3190, 0.28, 0.11), (5230, 0.14, 0.08), (7350, 0.05, 0.05)]]
    start = 0.0
    for strike in range(16):
        turn = start / 0.78  # of the crank: it gets up to speed and runs down
        level = 0.35 + 0.65 * np.sin(np.pi * np.clip(0.12 + 0.80 * turn, 0, 1))
        level *= random.uniform(0.85, 1.0)
        put(sound, level * ring(random, gongs[strike % 2], 0.0012), start)
        put(sound, level * burst(random, 0.10, 800, 3000, 0.003), start)
        start += (0.062 - 0.018 * np.sin(np.pi * np.clip(turn, 0, 1))) * random.uniform(0.95, 1.05)
    box = band(sound, 350, 900, 1)
    return band(sound, None, 5200, 1) + 0.4 * box


# A rotary has nine cylinders that fire once in two turns, and no throttle worth the name: the pilot
# cuts the ignition and lets it catch again.
CYLINDERS = 9
BLIPS = [(0.00, 1.15), (1.42, 2.28), (2.52, 3.60)]  # ignition on


def rotary_speed(seconds):
    """Turns a second, and how hard the engine fires, 0 to 1."""
    fire = np.zeros(frames(seconds))
    for first, last in BLIPS:
        fire[frames(first):frames(last)] = 1
    fire = band(fire, None, 9, 1)
    speed = 14.6 + 4.4 * band(fire, None, 1.6, 1)
    return speed, np.clip(fire, 0, 1)


def engine(random):
    """A rotary engine is blipped on the far side of the field."""
    seconds = 3.6
    t = times(seconds)
    speed, fire = rotary_speed(seconds)
    turns = np.cumsum(speed) / RATE
    shots = np.floor(turns * CYLINDERS / 2).astype(int)
    sound = np.zeros(len(t))
    exhaust = ring(random, [(116, 0.6, 0.009), (236, 0.6, 0.007), (470, 0.5, 0.005)], 0.001)
    strength = random.uniform(0.45, 1.0, CYLINDERS)  # no two cylinders are alike
    for frame in np.flatnonzero(np.diff(shots)):
        level = fire[frame] * strength[shots[frame] % CYLINDERS] * random.uniform(0.8, 1.1)
        put(sound, level * exhaust, frame / RATE)
        put(sound, level * burst(random, 0.35, 250, 1800, 0.003), frame / RATE)
    blades = band(random.standard_normal(len(t)), 120, 700)
    sound += 0.05 * blades / np.std(blades) * (1 + 0.7 * np.sin(2 * np.pi * 2 * turns))
    return far_away(random, sound, seconds)


def far_away(random, sound, seconds):
    """Air absorbs the high frequencies, hangars and trees reflect the rest, wind carries it in
    waves."""
    dry = band(sound, 80, 1000, 1)
    tail = times(0.7)
    echo = random.standard_normal(len(tail)) * np.exp(-tail / 0.12) * np.minimum(tail / 0.03, 1)
    echo = band(echo, 100, 700, 1)
    wet = fftconvolve(dry, echo / np.sqrt(np.sum(echo ** 2)))[:len(sound)]
    wind = np.clip(1 + 0.22 * smooth_chance(random, seconds, 5), 0.4, None)
    t = times(seconds)
    rise = np.sin(np.pi / 2 * np.clip(t / 0.7, 0, 1)) ** 2
    fall = np.sin(np.pi / 2 * np.clip((seconds - t) / 1.5, 0, 1)) ** 2
    return (dry + 0.5 * wet) * wind * rise * fall


# name: how it is made, peak in dB below full scale, seed.
SOUNDS = {
    'key': (key, -12, 11),
    'paper': (paper, -18, 12),
    'switch': (switch, -13, 13),
    'engine': (engine, -18, 14),
    'telephone': (telephone, -18, 15),
    'stamp': (stamp, -13, 16),
    'drawer': (drawer, -15, 17),
}


def finished(sound, peak):
    """Without silence at its ends, with soft ends, and at the requested loudness."""
    sound = band(sound, 35, None)
    heard = np.flatnonzero(np.abs(sound) > SILENCE * np.max(np.abs(sound)))
    sound = sound[heard[0]:heard[-1] + 1]
    rise, fall = frames(FADE_IN), int(FADE_OUT * len(sound))
    sound[:rise] *= np.sin(np.pi / 2 * np.arange(rise) / rise) ** 2
    sound[-fall:] *= np.cos(np.pi / 2 * np.arange(1, fall + 1) / fall) ** 2
    return sound * 10 ** (peak / 20) / np.max(np.abs(sound))


def write(sound, path):
    with wave.open(path, 'wb') as file:
        file.setnchannels(1)
        file.setsampwidth(2)
        file.setframerate(RATE)
        file.writeframes(np.round(sound * 32767).astype('<i2').tobytes())


def envelope_picture(sound, width, height):
    """The range that each column's samples cover; half of full scale is at the borders."""
    picture = Image.new('L', (width, height), 255)
    draw = ImageDraw.Draw(picture)
    for x, part in enumerate(np.array_split(sound, width)):
        draw.line((x, height / 2 * (1 - 2 * part.max()), x, height / 2 * (1 - 2 * part.min())), 0)
    return picture


def spectrum_picture(sound, width, height, highest=10000):
    """Frequency upwards to `highest`, black at the loudest and white 70 dB below it."""
    _, _, values = stft(sound, RATE, nperseg=512, noverlap=448)
    values = values[:int(highest / RATE * 512)]
    level = 20 * np.log10(np.abs(values) + 1e-9)
    grey = np.clip((level.max() - level) / 70, 0, 1)
    return Image.fromarray((grey[::-1] * 255).astype(np.uint8)).resize((width, height))


def draw_plot(sounds, path):
    width, height, gap = 460, 150, 20
    sheet = Image.new('L', (2 * width + 3 * gap, (height + 2 * gap) * len(sounds) + gap), 230)
    draw = ImageDraw.Draw(sheet)
    for row, (name, sound) in enumerate(sounds.items()):
        y = gap + row * (height + 2 * gap)
        draw.text((gap, y), f'{name}  {len(sound) / RATE:.3f} s', 0)
        sheet.paste(envelope_picture(sound, width, height), (gap, y + gap))
        sheet.paste(spectrum_picture(sound, width, height), (2 * gap + width, y + gap))
    sheet.save(path)


def main():
    parser = argparse.ArgumentParser(description='Makes the sounds of the screens.')
    parser.add_argument('folder')
    parser.add_argument('--plot', metavar='PNG')
    options = parser.parse_args()
    sounds = {}
    for name, (make, peak, seed) in SOUNDS.items():
        sounds[name] = finished(make(np.random.default_rng(seed)), peak)
        write(sounds[name], os.path.join(options.folder, name + '.wav'))
    if options.plot:
        draw_plot(sounds, options.plot)


if __name__ == '__main__':
    main()
