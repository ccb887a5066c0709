// The plan as SVG, PNG and PDF, and on the printer.

import { jsPDF } from 'jspdf';

import { strToU8, zipSync } from 'fflate';

import { PdfPen } from '../drawing/pdf_pen';
import { CanvasPen, SvgPen } from '../drawing/pen';
import { Plan, type PlanWanted } from '../drawing/plan';

const kDotsPerMm = 200 / 25.4;

/** Content, and the ending of the file's name. */
export interface PlanFile {
    readonly content: Blob;
    readonly ending: string;
}

/** A document for each sheet. */
export function planSvgs(wanted: PlanWanted): string[] {
    const plan = new Plan(wanted, new SvgPen());
    return Array.from({ length: plan.count }, (_, sheet) => {
        const pen = new SvgPen();
        plan.draw(pen, sheet);
        return pen.svg(plan.width, plan.height, wanted.texts.title);
    });
}

function planCanvases(wanted: PlanWanted): { plan: Plan; canvases: HTMLCanvasElement[] } {
    const ruler = new CanvasPen(document.createElement('canvas').getContext('2d') as CanvasRenderingContext2D);
    const plan = new Plan(wanted, ruler);
    const canvases = Array.from({ length: plan.count }, (_, sheet) => {
        const canvas = document.createElement('canvas');
        canvas.width = Math.round(plan.width * kDotsPerMm);
        canvas.height = Math.round(plan.height * kDotsPerMm);
        const context = canvas.getContext('2d') as CanvasRenderingContext2D;
        context.scale(kDotsPerMm, kDotsPerMm);
        plan.draw(new CanvasPen(context), sheet);
        return canvas;
    });
    return { plan, canvases };
}

function pngOf(canvas: HTMLCanvasElement): Promise<Blob> {
    return new Promise((resolve, reject) => canvas.toBlob((blob) => (blob ? resolve(blob) : reject(new Error('png'))), 'image/png'));
}

// Several sheets come in one zip.
function packed(sheets: readonly Uint8Array[], ending: string): PlanFile {
    const zip = zipSync(Object.fromEntries(sheets.map((sheet, i) => [`plan-${i + 1}.${ending}`, sheet])));
    return { content: new Blob([zip as Uint8Array<ArrayBuffer>], { type: 'application/zip' }), ending: `${ending}.zip` };
}

export function planSvg(wanted: PlanWanted): PlanFile {
    const sheets = planSvgs(wanted);
    return sheets.length === 1 ? { content: new Blob([sheets[0] ?? ''], { type: 'image/svg+xml' }), ending: 'svg' } : packed(sheets.map((sheet) => strToU8(sheet)), 'svg');
}

export async function planPng(wanted: PlanWanted): Promise<PlanFile> {
    const sheets = await Promise.all(planCanvases(wanted).canvases.map(pngOf));
    if (sheets.length === 1) return { content: sheets[0] as Blob, ending: 'png' };
    return packed(await Promise.all(sheets.map(async (sheet) => new Uint8Array(await sheet.arrayBuffer()))), 'png');
}

/** Lines and letters; pictures where the texts have letters that the fonts of PDF have not. */
export function planPdf(wanted: PlanWanted): PlanFile {
    const newPdf = (upright: boolean): jsPDF => {
        const pdf = new jsPDF({ orientation: upright ? 'portrait' : 'landscape', unit: 'mm', format: 'a4', compress: true });
        return pdf.setProperties({ title: wanted.texts.title, creator: 'plcalc' });
    };
    const plan = new Plan(wanted, new PdfPen(newPdf(false)));
    const pdf = newPdf(plan.height > plan.width);
    const pen = new PdfPen(pdf);
    for (let sheet = 0; sheet < plan.count; ++sheet) {
        if (sheet > 0) pdf.addPage();
        plan.draw(pen, sheet);
    }
    return { content: pen.complete ? pdf.output('blob') : pdfOfPictures(wanted, newPdf), ending: 'pdf' };
}

function pdfOfPictures(wanted: PlanWanted, newPdf: (upright: boolean) => jsPDF): Blob {
    const { plan, canvases } = planCanvases(wanted);
    const pdf = newPdf(plan.height > plan.width);
    canvases.forEach((canvas, sheet) => {
        if (sheet > 0) pdf.addPage();
        pdf.addImage(canvas, 'PNG', 0, 0, plan.width, plan.height);
    });
    return pdf.output('blob');
}

/** All sheets, for the printer. */
export function printedSheets(wanted: PlanWanted): string {
    const upright = (svg: string): boolean => svg.includes('height="297mm"');
    return planSvgs(wanted).map((svg) => `<div class="${upright(svg) ? 'upright' : 'lying'}">${svg}</div>`).join('');
}

/** Hands a file to the person. */
export function save(name: string, content: Blob): void {
    const link = document.createElement('a');
    link.href = URL.createObjectURL(content);
    link.download = name;
    link.click();
    setTimeout(() => URL.revokeObjectURL(link.href), 10_000);
}
