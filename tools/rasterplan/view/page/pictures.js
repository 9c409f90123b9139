"use strict";

// A picture of the drawing: a parallelogram in space, and the element that shows it.
class Picture {
  constructor(row) {
    this.name = row.name;
    this.path = row.path;
    this.pixels = row.pixels;
    this.isHidden = false;
    const [width, height] = row.pixels;
    this.leftBottom = new THREE.Vector3(...row.at);
    this.pixelU = new THREE.Vector3(...row.u);
    this.pixelV = new THREE.Vector3(...row.v);
    this.sideU = this.pixelU.clone().multiplyScalar(width);
    this.sideV = this.pixelV.clone().multiplyScalar(height);
    this.normal = this.pixelU.clone().cross(this.pixelV).normalize();
    this.corners = [[0, 0], [1, 0], [1, 1], [0, 1]].map(([u, v]) =>
      this.leftBottom.clone().addScaledVector(this.sideU, u).addScaledVector(this.sideV, v));
    this.center = this.corners[0].clone().lerp(this.corners[2], 0.5);
    this.object = new THREE.CSS3DObject(row.isShown ? this.#image(row.source) : this.#hatched(""));
    // The element's pixels are the picture's, so that pixel vectors are the axes.
    this.object.matrix.makeBasis(this.pixelU, this.pixelV, this.normal).setPosition(this.center);
    this.object.matrixAutoUpdate = false;
  }

  // Of the plane, in degrees: 0 for a wall, 90 for a plan.
  get angleToVertical() {
    return THREE.Math.radToDeg(Math.asin(Math.min(Math.abs(this.normal.z), 1)));
  }

  // How far its corners lie before a plane, on the side of the normal: the least and the most.
  before(point, normal) {
    const distances = this.corners.map((corner) => corner.clone().sub(point).dot(normal));
    return [Math.min(...distances), Math.max(...distances)];
  }

  // How far along the ray it meets the picture; nothing where it does not.
  hit(ray) {
    const across = ray.direction.dot(this.normal);
    if (Math.abs(across) < 1e-9)
      return null;
    const distance = this.leftBottom.clone().sub(ray.origin).dot(this.normal) / across;
    const inside = ray.at(distance, new THREE.Vector3()).sub(this.leftBottom);
    const part = (side, other) =>
      inside.clone().cross(other).dot(this.normal) / side.clone().cross(other).dot(this.normal);
    const [u, v] = [part(this.sideU, this.sideV), part(this.sideV, this.sideU)];
    return distance > 0 && u >= 0 && u <= 1 && v >= 0 && v <= 1 ? distance : null;
  }

  // Left out of a view.
  hide(isHidden) {
    this.isHidden = isHidden;
    this.outline(false);
  }

  // Left out of a frame.
  outline(isOutlined) {
    this.object.element.style.visibility = this.isHidden || isOutlined ? "hidden" : "visible";
  }

  #sized(element) {
    element.className = "picture";
    element.style.width = this.pixels[0] + "px";
    element.style.height = this.pixels[1] + "px";
    return element;
  }

  #image(source) {
    const image = this.#sized(document.createElement("img"));
    image.alt = "";
    image.draggable = false;
    image.decoding = "async";
    image.addEventListener("error", () => this.#replace(this.#hatched(this.name)));
    image.src = source;
    return image;
  }

  // The renderer sets a style only when it changes, so what it has set goes over.
  #replace(element) {
    for (const name of ["position", "transform", "visibility"])
      element.style[name] = this.object.element.style[name];
    this.object.element.replaceWith(element);
    this.object.element = element;
  }

  #hatched(text) {
    const frame = this.#sized(document.createElement("div"));
    const pitch = Math.max(...this.pixels) / 24;
    const line = "rgba(110, 120, 130, 0.6)";
    frame.classList.add("missing");
    frame.style.borderWidth = pitch / 12 + "px";
    frame.style.backgroundImage = `repeating-linear-gradient(45deg, ${line} 0 ${pitch / 10}px, ` +
      `transparent ${pitch / 10}px ${pitch}px)`;
    if (text) {
      const label = frame.appendChild(document.createElement("span"));
      label.textContent = text;
      label.style.fontSize = Math.min(this.pixels[0] * 1.5 / text.length, this.pixels[1] / 6) + "px";
      label.style.padding = "0 0.4em";
    }
    return frame;
  }
}

// The picture that a ray meets first, and where. Of pictures in one plane the last one lies on top.
function firstHit(pictures, ray) {
  let first = null;
  for (const picture of pictures) {
    const distance = picture.isHidden ? null : picture.hit(ray);
    if (distance !== null && (!first || distance <= first.distance * (1 + 1e-12)))
      first = {picture, distance};
  }
  return first && {picture: first.picture, point: ray.at(first.distance, new THREE.Vector3())};
}
