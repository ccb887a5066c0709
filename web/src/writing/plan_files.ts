// The plan as SVG, PNG and PDF, and on the printer.

import { jsPDF } from 'jspdf';

import type { Answer } from '../answer';
import { PdfPen } from '../drawing/pdf_pen';
import { CanvasPen, SvgPen } from '../drawing/pen';
import { drawPlan, kSheet, type PlanTexts } from '../drawing/plan';
import type { Numbers } from '../numbers';
import type { Asked } from '../state';

const kDotsPerMm = 200 / 25.4;

export interface PlanWanted {
    readonly answer: Answer;
    readonly asked: Asked;
    readonly numbers: Numbers;
    readonly texts: PlanTexts;
}

export function planSvg({ answer, asked, numbers, texts }: PlanWanted): string {
    const pen = new SvgPen();
    drawPlan(pen, answer, asked, numbers, texts);
    return pen.svg(kSheet.width, kSheet.height, texts.title);
}

function planCanvas({ answer, asked, numbers, texts }: PlanWanted): HTMLCanvasElement {
    const canvas = document.createElement('canvas');
    canvas.width = Math.round(kSheet.width * kDotsPerMm);
    canvas.height = Math.round(kSheet.height * kDotsPerMm);
    const context = canvas.getContext('2d') as CanvasRenderingContext2D;
    context.scale(kDotsPerMm, kDotsPerMm);
    drawPlan(new CanvasPen(context), answer, asked, numbers, texts);
    return canvas;
}

export async function planPng(wanted: PlanWanted): Promise<Blob> {
    return new Promise((resolve, reject) => planCanvas(wanted).toBlob((blob) => (blob ? resolve(blob) : reject(new Error('png'))), 'image/png'));
}

/** Lines and letters; a picture where the texts have letters that the fonts of PDF have not. */
export function planPdf(wanted: PlanWanted): Blob {
    const page = (): jsPDF => {
        const pdf = new jsPDF({ orientation: 'landscape', unit: 'mm', format: 'a4', compress: true });
        return pdf.setProperties({ title: wanted.texts.title, creator: 'plcalc' });
    };
    const pdf = page();
    const pen = new PdfPen(pdf);
    drawPlan(pen, wanted.answer, wanted.asked, wanted.numbers, wanted.texts);
    if (pen.complete) return pdf.output('blob');
    return page().addImage(planCanvas(wanted), 'PNG', 0, 0, kSheet.width, kSheet.height).output('blob');
}

/** Hands a file to the person. */
export function save(name: string, content: Blob | string, type = 'text/plain'): void {
    const link = document.createElement('a');
    link.href = URL.createObjectURL(typeof content === 'string' ? new Blob([content], { type: `${type};charset=utf-8` }) : content);
    link.download = name;
    link.click();
    setTimeout(() => URL.revokeObjectURL(link.href), 10_000);
}
