// Which places on the sheet are taken, so that no two labels lie on each other.

import type { XY } from './pen';

/** Where labels may stand. */
export type Within = Box;

interface Box {
    readonly left: number;
    readonly top: number;
    readonly right: number;
    readonly bottom: number;
}

// A turned label is a row of small boxes.
function boxesOf(at: XY, width: number, height: number, angle: number): Box[] {
    const count = angle === 0 ? 1 : Math.max(1, Math.ceil(width / height));
    const step = width / count;
    const halfWide = (Math.abs(Math.cos(angle)) * step + Math.abs(Math.sin(angle)) * height) / 2;
    const halfHigh = (Math.abs(Math.sin(angle)) * step + Math.abs(Math.cos(angle)) * height) / 2;
    return Array.from({ length: count }, (_, i) => {
        const along = (i + 0.5) * step - width / 2;
        const [x, y] = [at[0] + along * Math.cos(angle), at[1] + along * Math.sin(angle)];
        return { left: x - halfWide, top: y - halfHigh, right: x + halfWide, bottom: y + halfHigh };
    });
}

const kCell = 64;

export class LabelPlaces {
    private readonly cells = new Map<string, Box[]>();

    constructor(private readonly within: Within) {}

    isFree(at: XY, width: number, height: number, angle: number): boolean {
        return boxesOf(at, width, height, angle).every((box) =>
            box.left >= this.within.left && box.top >= this.within.top && box.right <= this.within.right && box.bottom <= this.within.bottom &&
            this.cellsOf(box).every((cell) => (this.cells.get(cell) ?? []).every((other) =>
                box.left >= other.right || box.right <= other.left || box.top >= other.bottom || box.bottom <= other.top)));
    }

    take(at: XY, width: number, height: number, angle: number): void {
        for (const box of boxesOf(at, width, height, angle))
            for (const cell of this.cellsOf(box)) this.put(cell, box);
    }

    private put(cell: string, box: Box): void {
        const there = this.cells.get(cell);
        if (there) there.push(box);
        else this.cells.set(cell, [box]);
    }

    private cellsOf(box: Box): string[] {
        const cells: string[] = [];
        if (!(box.right - box.left < 1e5 && box.bottom - box.top < 1e5)) return cells;
        for (let x = Math.floor(box.left / kCell); x <= Math.floor(box.right / kCell); ++x)
            for (let y = Math.floor(box.top / kCell); y <= Math.floor(box.bottom / kCell); ++y) cells.push(`${x} ${y}`);
        return cells;
    }
}
