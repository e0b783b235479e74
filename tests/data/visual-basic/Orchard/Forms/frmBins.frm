VERSION 5.00
Begin VB.Form frmBins 
   BorderStyle     =   3  'Fixed Dialog
   Caption         =   "Bins"
   ClientHeight    =   2600
   ClientLeft      =   60
   ClientTop       =   345
   ClientWidth     =   6180
   HelpContextID   =   1021
   LinkTopic       =   "Form1"
   ScaleHeight     =   4200
   StartUpPosition =   1  'CenterOwner
End
Attribute VB_Name = "frmBins"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
Option Explicit

Private Sub cmdTrace_Click()
    	frmTrace.Show
       frmTrace.Show vbModeless
End Sub

