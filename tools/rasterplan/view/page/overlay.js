"use strict";

// What is drawn over the pictures: the drawing's lines, the chosen picture, the measured points, the scale.
class Overlay {
  #canvas;
  #camera;
  #style = getComputedStyle(document.documentElement);

  lines = []; // pairs of points
  outline = []; // a closed line of points
  measured = []; // points
  label = "";
  lengthText = String; // how a length is written

  constructor(canvas, camera) {
    this.#canvas = canvas;
    this.#camera = camera;
  }

  draw(withLines, outlined) {
    const ratio = window.devicePixelRatio || 1;
    this.#canvas.width = Math.round(this.#camera.width * ratio); // empties it too
    this.#canvas.height = Math.round(this.#camera.height * ratio);
    const pen = this.#canvas.getContext("2d");
    pen.scale(ratio, ratio);
    const project = this.#camera.projection();
    if (withLines)
      this.#stroke(pen, project, this.lines, "--frame", 1);
    this.#stroke(pen, project, outlined.flatMap((picture) => this.#closed(picture.corners)), "--frame", 1);
    this.#stroke(pen, project, this.#closed(this.outline), "--mark", 2.5);
    this.#drawMeasure(pen, project);
    if (this.#camera.isParallel)
      this.#drawScale(pen);
  }

  #color(name) { return this.#style.getPropertyValue(name); }

  #closed(points) { return points.map((point, i) => [point, points[(i + 1) % points.length]]); }

  #stroke(pen, project, lines, color, width) {
    pen.beginPath();
    for (const [start, end] of lines) {
      const [a, b] = this.#beforeEye(start, end).map(project);
      if (!(a.z > 0 && b.z > 0))
        continue;
      pen.moveTo(a.x, a.y);
      pen.lineTo(b.x, b.y);
    }
    pen.strokeStyle = this.#color(color);
    pen.lineWidth = width;
    pen.stroke();
  }

  // The part of a line that lies before the eye, or both ends behind it.
  #beforeEye(start, end) {
    if (this.#camera.isParallel)
      return [start, end];
    const towards = this.#camera.towards;
    const eye = this.#camera.target.clone().addScaledVector(towards, this.#camera.distance);
    const nearest = 1e-3 * this.#camera.distance;
    const depths = [start, end].map((point) => eye.clone().sub(point).dot(towards) - nearest);
    if (depths[0] * depths[1] >= 0)
      return [start, end];
    const cut = start.clone().lerp(end, depths[0] / (depths[0] - depths[1]));
    return depths[0] > 0 ? [start, cut] : [cut, end];
  }

  #drawMeasure(pen, project) {
    const places = this.measured.map(project).filter((place) => place.z > 0);
    if (this.measured.length === 2)
      this.#stroke(pen, project, [this.measured], "--mark", 2);
    pen.fillStyle = this.#color("--mark");
    for (const {x, y} of places) {
      pen.beginPath();
      pen.arc(x, y, 4.5, 0, 2 * Math.PI);
      pen.fill();
    }
    if (places.length === 2)
      this.#write(pen, this.label, (places[0].x + places[1].x) / 2, (places[0].y + places[1].y) / 2 - 10);
  }

  // A bar of 1, 2 or 5 of some power of ten.
  #drawScale(pen) {
    const longest = 140 / this.#camera.pixelsPerUnit;
    const power = 10 ** Math.floor(Math.log10(longest));
    const length = power * [5, 2, 1].find((digit) => digit * power <= longest);
    const [left, bottom, width] = [14, this.#camera.height - 12, length * this.#camera.pixelsPerUnit];
    pen.strokeStyle = this.#color("--ink");
    pen.lineWidth = 2;
    pen.beginPath();
    pen.moveTo(left, bottom - 6);
    pen.lineTo(left, bottom);
    pen.lineTo(left + width, bottom);
    pen.lineTo(left + width, bottom - 6);
    pen.stroke();
    this.#write(pen, this.lengthText(length), left + width / 2, bottom - 6);
  }

  #write(pen, text, x, y) {
    pen.font = "600 14px system-ui, sans-serif";
    pen.textAlign = "center";
    pen.lineJoin = "round";
    pen.strokeStyle = this.#color("--paper");
    pen.lineWidth = 4;
    pen.strokeText(text, x, y);
    pen.fillStyle = this.#color("--ink");
    pen.fillText(text, x, y);
  }
}
