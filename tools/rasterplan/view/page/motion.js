"use strict";

// While the view moves, a slow browser shows only as many pictures as it draws ten times a second, the largest ones;
// the others are outlines until the view rests.
class Motion {
  static #wanted = 80; // milliseconds from asking for a frame to its turn
  static #fewest = 20;

  #pictures;
  #limit = Infinity;
  #outlined = [];

  constructor(pictures) {
    this.#pictures = pictures;
  }

  get outlined() { return this.#outlined; }

  // Before a frame while the view moves; `waited` is how long it had to wait for the one before.
  move(project, waited) {
    const shown = this.#pictures.length - this.#outlined.length;
    if (waited > Motion.#wanted)
      this.#limit = Math.max(shown * Motion.#wanted / waited, Motion.#fewest);
    else if (waited < Motion.#wanted / 2)
      this.#limit *= 1.3;
    const bySize = this.#pictures
      .map((picture) => ({picture, size: picture.sideU.length() * picture.sideV.length() * project(picture.center).z ** 2}))
      .sort((a, b) => b.size - a.size).map((each) => each.picture);
    this.#outline(this.#limit < bySize.length ? bySize.slice(this.#limit) : []);
  }

  rest() {
    this.#outline([]);
  }

  #outline(pictures) {
    for (const picture of this.#outlined)
      picture.outline(false);
    for (const picture of pictures)
      picture.outline(true);
    this.#outlined = pictures.filter((picture) => !picture.isHidden);
  }
}
